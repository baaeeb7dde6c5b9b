#include "data/EmbeddedFunctions.h"

#include "platform/runtime/Failure.h"

#include <sqlite3.h>

#include <array>
#include <memory>

namespace Quillane {

namespace {

constexpr const char* PartyName =
    "SELECT CASE WHEN Cities.CityName IS NULL THEN ChartOfAccounts.AccountName"
    " ELSE ChartOfAccounts.AccountName || '-' || Cities.CityName END"
    " FROM ChartOfAccounts LEFT JOIN Parties ON Parties.PartyId = ChartOfAccounts.AccountNo"
    " LEFT JOIN Cities ON Cities.CityId = Parties.CityId WHERE ChartOfAccounts.AccountNo = ?";

constexpr const char* CommodityName = "SELECT CommodityName FROM Commodities WHERE CommodityId = ?";

/// One look-up of a session. It is prepared at its first use, since the tables need not be there
/// when the session opens.
class LookUp {
public:
    LookUp(sqlite3* session, const char* text) : session_(session), text_(text) {}
    ~LookUp() { Finalize(); }
    LookUp(const LookUp&) = delete;
    LookUp& operator=(const LookUp&) = delete;

    void Finalize() {
        sqlite3_finalize(statement_);
        statement_ = nullptr;
    }

    void Answer(sqlite3_context* context, sqlite3_value* key) {
        if (!Prepare() || sqlite3_bind_value(statement_, 1, key) != SQLITE_OK) {
            sqlite3_result_error(context, sqlite3_errmsg(session_), -1);
            return;
        }
        const int outcome = sqlite3_step(statement_);
        if (outcome == SQLITE_ROW)
            sqlite3_result_value(context, sqlite3_column_value(statement_, 0));
        else if (outcome != SQLITE_DONE)
            sqlite3_result_error(context, sqlite3_errmsg(session_), -1);
        sqlite3_reset(statement_);
    }

private:
    bool Prepare() {
        return statement_ || sqlite3_prepare_v3(session_, text_, -1, SQLITE_PREPARE_PERSISTENT,
                                                &statement_, nullptr) == SQLITE_OK;
    }

    sqlite3* session_;
    const char* text_;
    sqlite3_stmt* statement_ = nullptr;
};

/// What a session keeps for its functions. A session with open statements cannot close, so they are
/// finalized when the closing begins; the functions' user data goes only after that.
struct LookUps {
    explicit LookUps(sqlite3* session)
        : party(session, PartyName), commodity(session, CommodityName) {}
    LookUp party;
    LookUp commodity;
};

void FunGetPartyName(sqlite3_context* context, int, sqlite3_value** arguments) {
    static_cast<LookUps*>(sqlite3_user_data(context))->party.Answer(context, arguments[0]);
}

void FunGetCommodity(sqlite3_context* context, int, sqlite3_value** arguments) {
    static_cast<LookUps*>(sqlite3_user_data(context))->commodity.Answer(context, arguments[0]);
}

int SessionCloses(unsigned, void* lookUps, void*, void*) {
    static_cast<LookUps*>(lookUps)->party.Finalize();
    static_cast<LookUps*>(lookUps)->commodity.Finalize();
    return 0;
}

void Check(sqlite3* session, int outcome) {
    if (outcome != SQLITE_OK)
        throw Failure(FailureNumber::Database, sqlite3_errmsg(session), FailureSource::Database);
}

} // namespace

void RegisterEmbeddedFunctions(sqlite3* session) {
    // The last function registered owns the look-ups: its destructor runs when the session has
    // closed, also when registering it fails.
    auto* lookUps = new LookUps(session);
    const int flags = SQLITE_UTF8;
    const int first = sqlite3_create_function_v2(session, "FunGetCommodity", 1, flags, lookUps,
                                                 FunGetCommodity, nullptr, nullptr, nullptr);
    const int second = sqlite3_create_function_v2(
        session, "FunGetPartyName", 1, flags, lookUps, FunGetPartyName, nullptr, nullptr,
        [](void* data) { delete static_cast<LookUps*>(data); });
    Check(session, second);
    Check(session, first);
    Check(session, sqlite3_trace_v2(session, SQLITE_TRACE_CLOSE, SessionCloses, lookUps));
}

} // namespace Quillane
