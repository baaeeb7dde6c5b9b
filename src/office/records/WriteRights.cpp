#include "office/records/WriteRights.h"

#include "platform/ado/Connection.h"

namespace Quillane::Office {

namespace {

bool IsOne(const Value& value) {
    return !value.IsNull() && value.Number() == 1;
}

std::string RightsStatement(std::string_view table) {
    const std::string name = "N'dbo." + std::string(table) + "'";
    const auto may = [&](const char* right) {
        return "HAS_PERMS_BY_NAME(" + name + ", N'OBJECT', N'" + right + "')";
    };
    return "Select " + may("INSERT") + ", " + may("UPDATE") + ", " + may("DELETE") +
           ", OBJECT_ID(N'dbo.StationKeyOf" + std::string(table) +
           "'), USER_NAME(OBJECTPROPERTY(OBJECT_ID(" + name +
           "), N'OwnerId')), DB_NAME(), "
           "SUSER_SNAME()";
}

} // namespace

TableRights ReadTableRights(Connection& connection, std::string_view table) {
    if (!connection.DatabaseFile().empty())
        return {};
    const Recordset answer = connection.Execute(RightsStatement(table));
    return {.mayWrite =
                IsOne(answer.Fields(0)) && IsOne(answer.Fields(1)) && IsOne(answer.Fields(2)),
            .isOfStations = !answer.Fields(3).IsNull(),
            .owner = answer.Fields(4).TextOrEmpty(),
            .database = answer.Fields(5).TextOrEmpty(),
            .signIn = answer.Fields(6).TextOrEmpty()};
}

std::string WhyReadOnly(const TableRights& rights) {
    if (rights.mayWrite)
        return {};
    const std::string mayNot =
        "The sign-in \"" + rights.signIn + "\" may read this list, but not change it. ";
    if (rights.isOfStations)
        return mayNot + "It is a table of the stations in the database " + rights.database +
               ". Start the office with the sign-in of the database owner, by the option "
               "--sign-in.";
    const std::string owner = rights.owner.empty() ? "" : ", owner " + rights.owner;
    return mayNot + "It belongs to the accounting database " + rights.database + owner +
           ". Change it in the accounting program.";
}

std::string WhyReadOnly(Connection& connection, std::span<const std::string_view> tables) {
    for (const std::string_view table : tables)
        if (std::string why = WhyReadOnly(ReadTableRights(connection, table)); !why.empty())
            return why;
    return {};
}

} // namespace Quillane::Office
