#pragma once

#include <QString>

#include <string>
#include <string_view>

/// Converts between the text of Qt and UTF-8, which all other code uses.
namespace Quillane {

inline QString ToQt(std::string_view text) {
    // Qt drops a byte order mark at the beginning. A name that begins with one would then not be
    // found.
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
