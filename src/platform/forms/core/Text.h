#pragma once

#include <QString>

#include <string>
#include <string_view>

/// Between Qt's text and the UTF-8 of everything else.
namespace Quillane {

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) {
    return text.toStdString();
}

} // namespace Quillane
