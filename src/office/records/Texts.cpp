#include "office/records/Texts.h"

#include "platform/runtime/Text.h"

#include <QString>

#include <algorithm>
#include <charconv>

namespace Quillane::Office {

namespace {

QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

bool IsAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Format characters are not refused in general: right-to-left scripts need the joiners.
bool IsUnfit(QChar character) {
    constexpr char16_t directionFirst = 0x202A;
    constexpr char16_t directionLast = 0x202E;
    return character.category() == QChar::Other_Control ||
           character.category() == QChar::Separator_Line ||
           character.category() == QChar::Separator_Paragraph ||
           (character.unicode() >= directionFirst && character.unicode() <= directionLast);
}

} // namespace

std::string SqlText(std::string_view text) {
    return "N'" + Doubled(text, '\'') + "'";
}

std::string Folded(std::string_view text) {
    const std::string_view kept = text.substr(0, text.find_last_not_of(' ') + 1);
    if (!IsAscii(kept))
        return ToQString(kept).toCaseFolded().toStdString();
    std::string folded(kept);
    std::ranges::transform(folded, folded.begin(), LowerCase);
    return folded;
}

int Utf16Length(std::string_view text) {
    return static_cast<int>(ToQString(text).size());
}

std::string Shortened(std::string_view text) {
    constexpr std::size_t most = 60;
    std::size_t end = std::min(most, text.size());
    while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80)
        --end;
    return std::string(text.substr(0, end)) + (end < text.size() ? "..." : "");
}

std::string Trimmed(std::string_view text) {
    if (!IsAscii(text))
        return ToQString(text).trimmed().toStdString();
    return std::string(TrimWhiteSpace(text));
}

bool HoldsControlCharacter(std::string_view text) {
    const QString characters = ToQString(text);
    return std::ranges::any_of(characters, IsUnfit);
}

std::optional<std::int32_t> PositiveNumber(std::string_view text) {
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 1)
        return std::nullopt;
    return number;
}

std::string Counted(long count, std::string_view one, std::string_view several) {
    return std::to_string(count) + " " + std::string(count == 1 ? one : several);
}

} // namespace Quillane::Office
