#include "platform/host/Utf8.h"

#include <QString>
#include <QStringDecoder>

#include <algorithm>

namespace Quillane {

bool IsUtf8(std::string_view text) {
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (std::all_of(text.begin(), text.end(), isAscii))
        return true;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded =
        decoder.decode(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
    return !decoder.hasError();
}

} // namespace Quillane
