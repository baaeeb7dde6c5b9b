#include "platform/forms/controls/DropDownSearch.h"

#include "platform/forms/core/Text.h"

namespace Quillane {

NameMatch MatchName(const RowArray& rows, const QString& typed) {
    NameMatch match;
    if (typed.isEmpty())
        return match;
    for (int row = 0; row < rows.RowCount(); ++row) {
        const QString name = NameAt(rows, row);
        if (!name.startsWith(typed, Qt::CaseInsensitive))
            continue;
        if (!match.beginning)
            match.beginning = row;
        if (name.size() == typed.size()) {
            match.named = row;
            break;
        }
    }
    return match;
}

QString NameAt(const RowArray& rows, int row) {
    return ToQt(rows.Get(row, 0));
}

} // namespace Quillane
