#pragma once

#include <QString>

#include <string>
#include <string_view>

/// Between Qt's text and the UTF-8 of everything else.
namespace Quillane {

inline QString ToQt(std::string_view text) {
    // Qt takes a byte order mark in front for one of the encoding, and would drop it: a name that
    // begins with one would no longer be found.
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    qsizetype marks = 0;
    for (; text.starts_with(byteOrderMark); ++marks)
        text.remove_prefix(byteOrderMark.size());
    const QString rest = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    return marks == 0 ? rest : QString(marks, QChar(QChar::ByteOrderMark)) + rest;
}
inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

} // namespace Quillane
