#include "platform/runtime/Date.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <utility>

namespace Quillane {

namespace {

std::function<Date()>& Clock() {
    static std::function<Date()> clock;
    return clock;
}

Date LocalDate() {
    const std::time_t now = std::time(nullptr);
    const std::tm local = *std::localtime(&now);
    return std::chrono::year(local.tm_year + 1900) /
           std::chrono::month(static_cast<unsigned>(local.tm_mon + 1)) /
           std::chrono::day(static_cast<unsigned>(local.tm_mday));
}

std::string Format(const char* pattern, int first, int second, int third) {
    std::array<char, 40> buffer{};
    std::snprintf(buffer.data(), buffer.size(), pattern, first, second, third);
    return buffer.data();
}

int Year(Date date) {
    return static_cast<int>(date.year());
}
int Month(Date date) {
    return static_cast<int>(static_cast<unsigned>(date.month()));
}
int Day(Date date) {
    return static_cast<int>(static_cast<unsigned>(date.day()));
}

int Digits(std::string_view text, std::size_t at, std::size_t count) {
    int value = 0;
    for (const char c : text.substr(at, count)) {
        if (!IsDigit(c))
            Fail(FailureNumber::TypeMismatch);
        value = value * 10 + (c - '0');
    }
    return value;
}

} // namespace

Date Today() {
    return Clock() ? Clock()() : LocalDate();
}

void SetClock(std::function<Date()> clock) {
    Clock() = std::move(clock);
}

Date AddDays(Date date, int days) {
    return std::chrono::sys_days(date) + std::chrono::days(days);
}

std::string DateLiteral(Date date) {
    return Format("%04d-%02d-%02dT00:00:00", Year(date), Month(date), Day(date));
}

std::string ShownDate(Date date) {
    return Format("%02d/%02d/%04d", Day(date), Month(date), Year(date));
}

Date ParseDate(std::string_view text) {
    if (text.size() < 10 || text[4] != '-' || text[7] != '-')
        Fail(FailureNumber::TypeMismatch);
    const Date date = std::chrono::year(Digits(text, 0, 4)) /
                      std::chrono::month(static_cast<unsigned>(Digits(text, 5, 2))) /
                      std::chrono::day(static_cast<unsigned>(Digits(text, 8, 2)));
    if (!date.ok())
        Fail(FailureNumber::TypeMismatch);
    return date;
}

} // namespace Quillane
