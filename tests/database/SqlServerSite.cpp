#include "database/SqlServerSite.h"

#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"
#include "setup/SchemaUpgrade.h"
#include "station/StationDatabase.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>

namespace Quillane {

namespace {

constexpr const char* password = "Weigh-Bridge-2026";

/// The connection string without the user and password.
std::string WithoutSignIn(const std::string& text) {
    std::string without;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(';', begin), text.size());
        const std::string entry = text.substr(begin, end - begin);
        const std::string key = UpperCase(Trim(entry.substr(0, entry.find('='))));
        if (key != "UID" && key != "PWD" && key != "TRUSTED_CONNECTION")
            without += entry + ";";
        begin = end + 1;
    }
    return without;
}

} // namespace

std::vector<std::string> RowsOf(Connection& connection, std::string_view query) {
    std::vector<std::string> rows;
    Recordset found = connection.Execute(query);
    for (; !found.Eof(); found.MoveNext()) {
        std::string row;
        for (int field = 0; field < found.FieldCount(); ++field) {
            const Value value = found.Fields(field);
            row += (field > 0 ? "|" : "") + (value.IsNull() ? "Null" : value.Text());
        }
        rows.push_back(row);
    }
    return rows;
}

std::vector<std::string> CatalogueOf(Connection& connection) {
    std::vector<std::string> all;
    for (const char* query :
         {"Select O.name, C.name, C.column_id, C.system_type_id, C.max_length, C.precision, "
          "C.scale, "
          "C.is_nullable, C.is_identity, C.is_computed From sys.columns C "
          "Inner Join sys.objects O On O.object_id = C.object_id Where O.is_ms_shipped = 0",
          "Select type, name, object_id From sys.objects Where is_ms_shipped = 0",
          "Select O.name, I.name, I.index_id, I.is_unique, I.is_primary_key From sys.indexes I "
          "Inner Join sys.objects O On O.object_id = I.object_id Where O.is_ms_shipped = 0",
          "Select definition From sys.sql_modules",
          "Select name From sys.database_principals Where type = 'R'"})
        for (const std::string& row : RowsOf(connection, query))
            all.push_back(row);
    std::sort(all.begin(), all.end());
    return all;
}

std::vector<std::string> ContentsOf(Connection& connection) {
    std::vector<std::string> all;
    for (const std::string& table : RowsOf(connection, "Select TABLE_NAME From "
                                                       "INFORMATION_SCHEMA.TABLES Where TABLE_TYPE "
                                                       "= 'BASE TABLE'"))
        for (const std::string& row : RowsOf(connection, "Select * From dbo." + table))
            all.push_back(UpperCase(table) + ": " + row);
    std::sort(all.begin(), all.end());
    return all;
}

NewDatabase ParticularsOfServer() {
    NewDatabase particulars = SampleParticulars();
    particulars.companyAddress = "14 Canal Road, O'Kara; -- \"ملتان\"";
    return particulars;
}

std::unique_ptr<SqlServerDatabase> MakeDatabase() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    for (;;) {
        try {
            return std::make_unique<SqlServerDatabase>();
        } catch (const Failure&) {
            if (std::chrono::steady_clock::now() > end)
                throw;
        }
    }
}

void SqlServerSite::SetUp() {
    database = MakeDatabase();
    Con = std::make_unique<Connection>();
    Con->Open(database->ConnectionString());
    Con->CursorLocation = adUseClient;
}

void SqlServerSite::TearDown() {
    Con.reset();
}

void SqlServerSite::MakeUntidySite() {
    std::ifstream file(QUILLANE_TEST_FOLDER "/database/untidy-site.sql", std::ios::binary);
    const std::string script{std::istreambuf_iterator<char>(file), {}};
    ASSERT_FALSE(script.empty());
    RunScript(*Con, script);
}

RoleMember::RoleMember(Connection& owner, const SqlServerDatabase& database,
                       const std::string& role)
    : RoleMember(owner, database, role, role == "StationOperator" ? "Station" : "dbo") {}

RoleMember::RoleMember(Connection& owner, const SqlServerDatabase& database,
                       const std::string& role, const std::string& defaultSchema)
    : owner_(owner), database_(database), name_("Gate_" + owner.DefaultDatabase()) {
    RenewRights(owner_);
    owner_.Execute("CREATE LOGIN " + name_ + " WITH PASSWORD = '" + password + "'");
    owner_.Execute("CREATE USER " + name_ + " FOR LOGIN " + name_ +
                   " WITH DEFAULT_SCHEMA = " + defaultSchema);
    owner_.Execute("ALTER ROLE " + role + " ADD MEMBER " + name_);
    SignInAgain();
}

void RoleMember::SignInAgain() {
    connection = std::make_unique<Connection>();
    connection->Open(WithoutSignIn(database_.ConnectionString()), name_, password);
    connection->CursorLocation = adUseClient;
}

RoleMember::~RoleMember() {
    connection.reset();
    try {
        owner_.Execute("DROP USER " + name_);
    } catch (const Failure& failure) {
        ADD_FAILURE() << failure.Description();
    }
    DropLogin();
}

// The server may need a moment to notice that the connection has ended.
void RoleMember::DropLogin() {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    for (;;) {
        try {
            owner_.Execute("DROP LOGIN " + name_);
            return;
        } catch (const Failure& failure) {
            if (std::chrono::steady_clock::now() > end) {
                ADD_FAILURE() << failure.Description();
                return;
            }
        }
    }
}

} // namespace Quillane
