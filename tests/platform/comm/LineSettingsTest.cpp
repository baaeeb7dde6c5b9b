#include "platform/comm/LineSettings.h"

#include <gtest/gtest.h>

namespace Quillane {
namespace {

TEST(LineSettings, AcceptRateParityDataBitsAndStopBits) {
    struct Case {
        const char* text;
        std::int32_t rate;
        QSerialPort::Parity parity;
        QSerialPort::DataBits dataBits;
        QSerialPort::StopBits stopBits;
    };
    const Case cases[] = {
        {"9600,n,8,1", 9600, QSerialPort::NoParity, QSerialPort::Data8, QSerialPort::OneStop},
        {"2400,e,7,2", 2400, QSerialPort::EvenParity, QSerialPort::Data7, QSerialPort::TwoStop},
        {"110,o,5,1.5", 110, QSerialPort::OddParity, QSerialPort::Data5,
         QSerialPort::OneAndHalfStop},
        {"56000,m,6,1", 56000, QSerialPort::MarkParity, QSerialPort::Data6, QSerialPort::OneStop},
        {"300,s,8,1", 300, QSerialPort::SpaceParity, QSerialPort::Data8, QSerialPort::OneStop},
        {" 9600 , N , 8 , 1 ", 9600, QSerialPort::NoParity, QSerialPort::Data8,
         QSerialPort::OneStop},
    };
    for (const Case& c : cases) {
        const auto settings = ParseLineSettings(c.text);
        ASSERT_TRUE(settings) << c.text;
        EXPECT_EQ(settings->rate, c.rate) << c.text;
        EXPECT_EQ(settings->parity, c.parity) << c.text;
        EXPECT_EQ(settings->dataBits, c.dataBits) << c.text;
        EXPECT_EQ(settings->stopBits, c.stopBits) << c.text;
    }
}

TEST(LineSettings, ComputeTheTransmissionTimeOfACharacter) {
    const std::pair<const char*, std::chrono::nanoseconds> cases[] = {
        {"1000,n,8,1", std::chrono::milliseconds(10)},
        {"1000,e,8,1", std::chrono::milliseconds(11)},
        {"1000,n,5,1.5", std::chrono::microseconds(7500)},
        {"1000,s,7,2", std::chrono::milliseconds(11)},
        {"2400,n,8,1", std::chrono::nanoseconds(4166666)},
    };
    for (const auto& [text, time] : cases)
        EXPECT_EQ(ParseLineSettings(text)->Character(), time) << text;
}

TEST(LineSettings, RefuseAnyOtherText) {
    for (const char* text : {"",
                             ",,,",
                             "9600",
                             "9600,n,8",
                             "9600,n,8,1,",
                             "9600,n,8,1,0",
                             "9600;n;8;1",
                             "0,n,8,1",
                             "-9600,n,8,1",
                             "9600.5,n,8,1",
                             "9600x,n,8,1",
                             "99999999999,n,8,1",
                             ",n,8,1",
                             "9600,,8,1",
                             "9600,none,8,1",
                             "9600,x,8,1",
                             "9600,n,4,1",
                             "9600,n,9,1",
                             "9600,n,88,1",
                             "9600,n,8,0",
                             "9600,n,8,3",
                             "9600,n,8,1.50",
                             "9600,n,8,"})
        EXPECT_FALSE(ParseLineSettings(text)) << text;
}

} // namespace
} // namespace Quillane
