#include "platform/host/UserSettings.h"

#include "platform/runtime/Failure.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>
#include <QString>
#include <QUrl>

namespace Quillane {

namespace {

QString FromUtf8(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// Slashes and backslashes would otherwise be taken for sections or folders.
QString Encoded(std::string_view name) {
    if (name.empty())
        Fail(FailureNumber::InvalidCall);
    QString encoded = QString::fromLatin1(QUrl::toPercentEncoding(FromUtf8(name)));
    if (encoded.startsWith('.'))
        encoded.replace(0, 1, "%2E");
    return encoded;
}

[[noreturn]] void Refuse(const QString& file, std::string_view reason) {
    throw Failure(FailureNumber::PathAccess,
                  "The settings file " + file.toStdString() + " " + std::string(reason));
}

/// The store of one application, opened for one reading or writing.
class Store {
public:
    explicit Store(std::string_view application)
        : file_(FromUtf8(SettingsFile(application))), settings_(file_, QSettings::IniFormat) {
        const QFileInfo info(file_);
        if (info.exists() && !(info.isFile() && info.isReadable()))
            Refuse(file_, "cannot be read.");
        Check("cannot be read.");
    }

    QString Read(const QString& key, const QString& defaultValue) const {
        const QVariant value = settings_.value(key, defaultValue);
        // A line written by hand with a bare comma is read as a list.
        return value.typeId() == QMetaType::QStringList ? value.toStringList().join(", ")
                                                        : value.toString();
    }

    void Write(const QString& key, const QString& value) {
        settings_.setValue(key, value);
        settings_.sync();
        Check("cannot be written.");
    }

private:
    void Check(std::string_view reason) const {
        if (settings_.status() == QSettings::FormatError)
            Refuse(file_, "is damaged. Rename it, and the choices kept in it are made anew.");
        if (settings_.status() != QSettings::NoError)
            Refuse(file_, reason);
    }

    QString file_;
    QSettings settings_;
};

} // namespace

std::string SettingsFile(std::string_view application) {
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return QDir(folder).filePath(Encoded(application) + "/settings.ini").toStdString();
}

std::string GetSetting(std::string_view application, std::string_view section, std::string_view key,
                       std::string_view defaultValue) {
    return Store(application)
        .Read(Encoded(section) + "/" + Encoded(key), FromUtf8(defaultValue))
        .toStdString();
}

void SaveSetting(std::string_view application, std::string_view section, std::string_view key,
                 std::string_view value) {
    Store(application).Write(Encoded(section) + "/" + Encoded(key), FromUtf8(value));
}

} // namespace Quillane
