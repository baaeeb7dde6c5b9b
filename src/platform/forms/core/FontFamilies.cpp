#include "platform/forms/core/FontFamilies.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>

#include <map>

namespace Quillane {

namespace {

// The second family is the substitute for the named one; a family that is not installed is skipped.
QStringList Find(const QString& name) {
    QStringList families{name, QFontInfo(QFont(name)).family()};
    for (const char* complete :
         {"Nafees Web Naskh", "Noto Naskh Arabic", "Scheherazade New", "Scheherazade", "Amiri"})
        if (QFontDatabase::hasFamily(QLatin1String(complete)))
            families.append(QLatin1String(complete));
    return families;
}

} // namespace

const QStringList& FontFamilies(const QString& name) {
    static std::map<QString, QStringList> known;
    const auto found = known.find(name);
    return found != known.end() ? found->second : known.emplace(name, Find(name)).first->second;
}

} // namespace Quillane
