#include "data/EmbeddedFunctions.h"

#include "platform/runtime/Failure.h"

#include <sqlite3.h>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace Quillane {

namespace {

constexpr const char* PartyName =
    "SELECT CASE WHEN Cities.CityName IS NULL THEN ChartOfAccounts.AccountName"
    " ELSE ChartOfAccounts.AccountName || '-' || Cities.CityName END"
    " FROM main.ChartOfAccounts LEFT JOIN main.Parties ON PartyId = AccountNo"
    " LEFT JOIN main.Cities ON Cities.CityId = Parties.CityId WHERE AccountNo = ?";

constexpr const char* CommodityName =
    "SELECT CommodityName FROM main.Commodities WHERE CommodityId = ?";

using Name = std::optional<std::string>;

std::string_view TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text ? text : "", static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

void Return(sqlite3_context* context, const Name& name) {
    if (name)
        sqlite3_result_text64(context, name->data(), name->size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

/// A cache of the names that a session has looked up.
///
/// Within a read transaction a session sees one state of the database. The data version of SQLite
/// identifies that state: it changes with each commit of this session and, when a transaction
/// begins, if another session has committed. A session that writes sees uncommitted changes that do
/// not change the version and can be rolled back, so the cache is not used then.
class NameCache {
public:
    explicit NameCache(sqlite3* session) : session_(session) {}

    /// False if the cache must not be used for this call. Removes names that may be out of date.
    bool IsUsable() {
        if (sqlite3_txn_state(session_, "main") != SQLITE_TXN_READ)
            return false;
        unsigned version = 0;
        if (sqlite3_file_control(session_, "main", SQLITE_FCNTL_DATA_VERSION, &version) !=
            SQLITE_OK)
            return false;
        if (version != version_ || byText_.size() + byNumber_.size() > most) {
            byText_.clear();
            byNumber_.clear();
            version_ = version;
        }
        return true;
    }

    const Name* Find(sqlite3_value* key) const {
        if (sqlite3_value_type(key) == SQLITE_TEXT) {
            const auto found = byText_.find(TextOf(key));
            return found == byText_.end() ? nullptr : &found->second;
        }
        const auto found = byNumber_.find(sqlite3_value_int64(key));
        return found == byNumber_.end() ? nullptr : &found->second;
    }

    void Add(sqlite3_value* key, const Name& name) {
        if (sqlite3_value_type(key) == SQLITE_TEXT)
            byText_.emplace(TextOf(key), name);
        else
            byNumber_.emplace(sqlite3_value_int64(key), name);
    }

    static bool CanBeKey(sqlite3_value* key) {
        const int type = sqlite3_value_type(key);
        return type == SQLITE_TEXT || type == SQLITE_INTEGER;
    }

private:
    static constexpr std::size_t most = 100'000;

    struct Hash : std::hash<std::string_view> {
        using is_transparent = void;
    };

    sqlite3* session_;
    unsigned version_ = 0;
    std::unordered_map<std::string, Name, Hash, std::equal_to<>> byText_;
    std::unordered_map<std::int64_t, Name> byNumber_;
};

/// One prepared query of a session. It is prepared at its first use, because the tables may not
/// exist yet when the session opens.
class LookUp {
public:
    LookUp(sqlite3* session, const char* text) : session_(session), text_(text), cache_(session) {}
    ~LookUp() { Finalize(); }
    LookUp(const LookUp&) = delete;
    LookUp& operator=(const LookUp&) = delete;

    void Finalize() {
        sqlite3_finalize(statement_);
        statement_ = nullptr;
    }

    void Answer(sqlite3_context* context, sqlite3_value* key) {
        const bool usesCache = NameCache::CanBeKey(key) && cache_.IsUsable();
        const Name* cached = usesCache ? cache_.Find(key) : nullptr;
        if (cached)
            return Return(context, *cached);
        Name name;
        if (!LookFor(key, name))
            return sqlite3_result_error(context, sqlite3_errmsg(session_), -1);
        if (usesCache)
            cache_.Add(key, name);
        Return(context, name);
    }

private:
    /// False if the engine reports an error; sqlite3_errmsg returns it.
    bool LookFor(sqlite3_value* key, Name& name) {
        if (!Prepare() || sqlite3_bind_value(statement_, 1, key) != SQLITE_OK)
            return false;
        if (sqlite3_step(statement_) == SQLITE_ROW &&
            sqlite3_column_type(statement_, 0) != SQLITE_NULL)
            name = TextOf(sqlite3_column_value(statement_, 0));
        return sqlite3_reset(statement_) == SQLITE_OK; // reports a failed step
    }

    bool Prepare() {
        return statement_ || sqlite3_prepare_v3(session_, text_, -1, SQLITE_PREPARE_PERSISTENT,
                                                &statement_, nullptr) == SQLITE_OK;
    }

    sqlite3* session_;
    const char* text_;
    NameCache cache_;
    sqlite3_stmt* statement_ = nullptr;
};

/// The data of the SQL functions of one session. A session with open statements cannot close, so
/// the statements are finalized when closing begins. SQLite destroys the user data of functions
/// later.
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
    // The function that is registered last owns the data. SQLite calls its destructor when the
    // session has closed, and also if the registration fails.
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
