#include "platform/host/UserSettings.h"

#include "platform/runtime/Failure.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStandardPaths>
#include <QString>

#include <algorithm>
#include <map>
#include <utility>

// QSettings is not used: it ignores a damaged file on the second access and overwrites it.

namespace Quillane {

namespace {

using SectionAndKey = std::pair<std::string, std::string>;
using Settings = std::map<SectionAndKey, std::string>;

/// Some editors write it at the beginning of a file.
constexpr const char* byteOrderMark = "\xEF\xBB\xBF";
constexpr qint64 lengthOfMark = 3;

QString FromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// The file holds percent signs and control characters only in encoded form. In names, every
// character with a meaning in the file or in a path is encoded too.
std::string EncodedName(std::string_view name) {
    if (name.empty())
        Fail(FailureNumber::InvalidCall);
    const QByteArray bytes(name.data(), static_cast<qsizetype>(name.size()));
    std::string encoded = bytes.toPercentEncoding().toStdString();
    if (encoded.front() == '.')
        encoded.replace(0, 1, "%2E");
    return encoded;
}

std::string EncodedValue(std::string_view value) {
    const QByteArray bytes(value.data(), static_cast<qsizetype>(value.size()));
    return bytes.toPercentEncoding(" !\"#$&'()*+,/:;<=>?@[\\]^`{|}").toStdString();
}

std::string Decoded(std::string_view text) {
    return QByteArray::fromPercentEncoding(
               QByteArray(text.data(), static_cast<qsizetype>(text.size())))
        .toStdString();
}

[[noreturn]] void Refuse(const std::string& file, std::string_view reason) {
    throw Failure(FailureNumber::PathAccess,
                  "The settings file " + file + " " + std::string(reason));
}

bool HoldsControlCharacter(std::string_view line) {
    return std::any_of(line.begin(), line.end(),
                       [](unsigned char c) { return c < ' ' || c == 0x7F; });
}

/// Reads one line of the file. False if it is neither a section nor a new key with a value.
bool ReadLine(std::string_view line, std::string& section, Settings& settings) {
    if (line.empty())
        return true;
    if (HoldsControlCharacter(line))
        return false;
    if (line.front() == '[') {
        section = Decoded(line.substr(1, line.size() - 2));
        return line.back() == ']' && !section.empty();
    }
    const auto equals = line.find('=');
    if (section.empty() || equals == std::string_view::npos || equals == 0)
        return false;
    const SectionAndKey name{section, Decoded(line.substr(0, equals))};
    return settings.emplace(name, Decoded(line.substr(equals + 1))).second;
}

Settings ReadAll(const std::string& path) {
    Settings settings;
    QFile file(FromUtf8(path));
    if (!QFileInfo::exists(file.fileName()))
        return settings;
    if (!file.open(QIODevice::ReadOnly))
        Refuse(path, "cannot be read. Check the rights of this user.");
    std::string section;
    if (file.peek(lengthOfMark) == byteOrderMark)
        file.skip(lengthOfMark);
    for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine()) {
        if (line.endsWith('\n'))
            line.chop(1);
        if (!ReadLine({line.constData(), static_cast<std::size_t>(line.size())}, section, settings))
            Refuse(path,
                   "is damaged. Rename it; the program then starts with the default choices.");
    }
    if (file.error() != QFileDevice::NoError)
        Refuse(path, "cannot be read. Check the rights of this user.");
    return settings;
}

std::string Written(const Settings& settings) {
    std::string text;
    std::string section;
    for (const auto& [name, value] : settings) {
        if (name.first != section)
            text += "[" + EncodedName(name.first) + "]\n";
        section = name.first;
        text += EncodedName(name.second) + "=" + EncodedValue(value) + "\n";
    }
    return text;
}

// Writes a new file, flushes it to the disk and renames it over the old one.
void WriteAll(const std::string& path, const Settings& settings) {
    const QString name = FromUtf8(path);
    QDir().mkpath(QFileInfo(name).path());
    QSaveFile file(name);
    const std::string text = Written(settings);
    const auto size = static_cast<qint64>(text.size());
    if (!file.open(QIODevice::WriteOnly) || file.write(text.data(), size) != size || !file.commit())
        Refuse(path, "cannot be written: " + file.errorString().toStdString() + ".");
}

} // namespace

std::string SettingsFile(std::string_view application) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return folder.toStdString() + "/" + EncodedName(application) + "/settings.ini";
}

std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view defaultValue) {
    if (section.empty() || key.empty())
        Fail(FailureNumber::InvalidCall);
    const Settings settings = ReadAll(SettingsFile(application));
    const auto found = settings.find({std::string(section), std::string(key)});
    return std::string(found == settings.end() ? defaultValue : found->second);
}

void SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                 std::string_view value) {
    if (section.empty() || key.empty())
        Fail(FailureNumber::InvalidCall);
    const std::string path = SettingsFile(application);
    Settings settings = ReadAll(path);
    settings[{std::string(section), std::string(key)}] = value;
    WriteAll(path, settings);
}

} // namespace Quillane
