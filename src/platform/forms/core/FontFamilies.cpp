#include "platform/forms/core/FontFamilies.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontInfo>

#include <map>

namespace Quillane {

namespace {

// Behind the name comes the font that stands in for it, since a name that is not there would be
// passed over.
QStringList Find(const QString& name) {
    QStringList families{name, QFontInfo(QFont(name)).family()};
    for (const char* complete :
         {"Nafees Web Naskh", "Noto Naskh Arabic", "Scheherazade New", "Scheherazade", "Amiri"}) {
        if (QFontDatabase::hasFamily(QLatin1String(complete)))
            families.append(QLatin1String(complete));
    }
    return families;
}

} // namespace

const QStringList& FontFamilies(const QString& name) {
    static std::map<QString, QStringList> known;
    const auto found = known.find(name);
    return found != known.end() ? found->second : known.emplace(name, Find(name)).first->second;
}

} // namespace Quillane
