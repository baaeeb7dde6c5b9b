#include "scale/RawText.h"

#include "platform/forms/core/Text.h"

#include <QLineEdit>

#include <gtest/gtest.h>

#include <set>

namespace Quillane {
namespace {

using namespace std::string_literals;

TEST(ShownRawText, LeavesWhatCanBeSeenAndNamesWhatCannot) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", ""},
        {"+012540 kg", "+012540 kg"},
        {"+012540 kg\r\n+0125", "+012540 kg<CR><LF>+0125"},
        {"\x02*0 004320\x03", "<STX>*0 004320<ETX>"},
        {"1\0002"s, "1<NUL>2"},
        {"\t\x1B\x7F", "<HT><ESC><DEL>"},
        {"\x80\x9F\xA0\xAD", "<x80><x9F><xA0><xAD>"},
        {"\xB0\xE9\xFF", "\u00B0\u00E9\u00FF"},
        {"\xC3\xA9", "\u00C3\u00A9"}, // bytes, and no UTF-8
    };
    for (const auto& [bytes, shown] : cases)
        EXPECT_EQ(ShownRawText(bytes), shown);
}

TEST(ShownRawText, ShowsEachByteAsSomethingOfItsOwn) {
    std::set<std::string> shown;
    for (int byte = 0; byte < 256; ++byte) {
        const std::string one = ShownRawText(std::string(1, static_cast<char>(byte)));
        for (const QChar character : ToQt(one))
            EXPECT_TRUE(character.isPrint() && character != QChar::Nbsp) << byte;
        shown.insert(one);
    }
    EXPECT_EQ(shown.size(), 256u);
}

TEST(ShownRawText, IsKeptWholeByABox) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    const QString shown = ToQt(ShownRawText(bytes));
    QLineEdit box;
    box.setText(shown);
    EXPECT_EQ(box.text(), shown);
    EXPECT_EQ(box.displayText(), shown) << "nothing is turned into a blank";
}

} // namespace
} // namespace Quillane
