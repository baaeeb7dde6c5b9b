#include "office/daybook/Names.h"

#include "platform/ado/Connection.h"

namespace Quillane::Office {

const std::string& DayBookNames::List::NameOf(const std::string& id) const {
    const auto found = indices.find(Folded(id));
    return found == indices.end() || all[found->second].name.empty() ? id : all[found->second].name;
}

DayBookNames::List DayBookNames::Read(Connection& connection, const std::string& statement) {
    List list;
    for (Recordset rows = connection.Execute(statement); !rows.Eof(); rows.MoveNext())
        list.all.push_back(
            {Trimmed(rows.Fields(0).TextOrEmpty()), Trimmed(rows.Fields(1).TextOrEmpty())});
    SortByName(list.all);
    for (std::size_t index = 0; index < list.all.size(); ++index)
        list.indices.emplace(Folded(list.all[index].id), index);
    return list;
}

DayBookNames::DayBookNames(Connection& connection)
    : parties_(Read(connection, "Select PartyId, dbo.FunGetPartyName(PartyId) From Parties")),
      commodities_(Read(connection,
                        "Select CommodityId, dbo.FunGetCommodity(CommodityId) From Commodities")) {}

} // namespace Quillane::Office
