#include "office/records/Users.h"

#include "office/records/Texts.h"
#include "platform/ado/Transaction.h"
#include "signin/UserLogin.h"

#include <QList>
#include <QString>

#include <algorithm>

namespace Quillane::Office {

namespace {

constexpr const char* allUsers = "Select * From StationUsers Order By UserName";
constexpr std::int32_t highestLevel = 32767;

// The sign-in compares names in the same way.
std::string Comparable(std::string_view name) {
    return Folded(Trimmed(name));
}

int CharacterCount(std::string_view text) {
    return static_cast<int>(
        QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size())).toUcs4().size());
}

std::string InQuotes(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::string NoSuchUser(std::string_view name) {
    return "There is no user " + InQuotes(name) + ". Update the list of users.";
}

std::string WhyNameIsUnfit(const std::string& name) {
    if (name.empty())
        return "The name of the user is missing. Enter a name.";
    if (Utf16Length(name) > LongestUserName)
        return "The name has more than " + std::to_string(LongestUserName) +
               " characters. Choose a shorter one.";
    if (HoldsControlCharacter(name))
        return "The name contains a line break or another control character. Remove it.";
    return {};
}

std::string WhyLevelIsUnfit(std::int32_t level) {
    if (level >= 0 && level <= highestLevel)
        return {};
    return "The level must be a number from 0 to " + std::to_string(highestLevel) +
           ". Level 1 has full rights, 2 and above have restricted rights, 0 cannot sign in.";
}

/// All users, locked for writing until the transaction ends.
class LockedUsers {
public:
    explicit LockedUsers(Connection& connection) {
        connection.Execute("Update StationUsers Set UserLevel = UserLevel");
        rows_.Open(allUsers, connection, adOpenStatic, adLockOptimistic);
    }

    Recordset& Rows() { return rows_; }

    /// False if no user has this name.
    bool MoveTo(std::string_view name) {
        const std::string wanted = Comparable(name);
        for (rows_.MoveFirst(); !rows_.Eof(); rows_.MoveNext())
            if (Comparable(rows_.Fields("UserName").TextOrEmpty()) == wanted)
                return true;
        return false;
    }
    std::int32_t Level() const { return rows_.Fields("UserLevel").Long(); }

    /// Why the current user may not be changed: another user has changed it; empty otherwise.
    std::string WhyNotAsShown(const User& shown) const {
        if (Level() == shown.level)
            return {};
        return "Another user has changed the level of " + InQuotes(shown.name) + " from " +
               std::to_string(shown.level) + " to " + std::to_string(Level()) +
               " in the meantime. Nothing was written. Check the level and try again.";
    }

    /// True if the current user is the only one with full rights. Changes the current row.
    bool IsLastWithFullRights() {
        if (Level() != FullRights)
            return false;
        long count = 0;
        for (rows_.MoveFirst(); !rows_.Eof(); rows_.MoveNext())
            count += Level() == FullRights;
        return count == 1;
    }

private:
    Recordset rows_;
};

std::string LastOne(std::string_view name) {
    return InQuotes(name) +
           " is the last user of level 1. Users and lists cannot be edited without one. "
           "Give another user level 1 first.";
}

/// Makes the user the current one. Returns the reason why it may not be changed; empty if it may.
std::string MoveToChange(LockedUsers& users, const User& shown, bool losesFullRights) {
    if (!users.MoveTo(shown.name))
        return NoSuchUser(shown.name);
    if (std::string why = users.WhyNotAsShown(shown); !why.empty())
        return why;
    if (losesFullRights && users.IsLastWithFullRights())
        return LastOne(shown.name);
    users.MoveTo(shown.name);
    return {};
}

} // namespace

std::vector<User> ReadUsers(Connection& connection) {
    std::vector<User> users;
    Recordset rows =
        connection.Execute("Select UserName, UserLevel From StationUsers Order By UserName");
    for (; !rows.Eof(); rows.MoveNext())
        users.push_back({rows.Fields("UserName").TextOrEmpty(), rows.Fields("UserLevel").Long()});
    return users;
}

std::string PasswordRule() {
    return "At least " + std::to_string(ShortestPassword) + " characters, at most " +
           std::to_string(LongestPassword) + ". The password is case-sensitive.";
}

std::string WhyPasswordIsUnfit(std::string_view password) {
    const int length = CharacterCount(password);
    if (length >= ShortestPassword && length <= LongestPassword)
        return {};
    return "The password has " + Counted(length, "character", "characters") + ". " + PasswordRule();
}

std::string AddUser(Connection& connection, const User& user, std::string_view password,
                    HashCost cost) {
    const std::string name = Trimmed(user.name);
    for (std::string why :
         {WhyNameIsUnfit(name), WhyLevelIsUnfit(user.level), WhyPasswordIsUnfit(password)})
        if (!why.empty())
            return why;
    const std::string hash = HashPassword(password, cost);
    Transaction transaction(connection);
    LockedUsers users(connection);
    if (users.MoveTo(name))
        return "There is already a user " +
               InQuotes(users.Rows().Fields("UserName").TextOrEmpty()) +
               ". Names are not case-sensitive. Choose another.";
    users.Rows().AddNew();
    users.Rows().Collect("UserName", name);
    users.Rows().Collect("PasswordHash", hash);
    users.Rows().Collect("UserLevel", user.level);
    users.Rows().Update();
    transaction.Commit();
    return {};
}

std::string SetPassword(Connection& connection, std::string_view name, std::string_view password,
                        HashCost cost) {
    if (std::string why = WhyPasswordIsUnfit(password); !why.empty())
        return why;
    const std::string hash = HashPassword(password, cost);
    Transaction transaction(connection);
    LockedUsers users(connection);
    if (!users.MoveTo(name))
        return NoSuchUser(name);
    users.Rows().Collect("PasswordHash", hash);
    users.Rows().Update();
    transaction.Commit();
    return {};
}

std::string SetLevel(Connection& connection, const User& shown, std::int32_t level) {
    if (std::string why = WhyLevelIsUnfit(level); !why.empty())
        return why;
    Transaction transaction(connection);
    LockedUsers users(connection);
    if (std::string why = MoveToChange(users, shown, level != FullRights); !why.empty())
        return why;
    users.Rows().Collect("UserLevel", level);
    users.Rows().Update();
    transaction.Commit();
    return {};
}

std::string RemoveUser(Connection& connection, const User& shown) {
    Transaction transaction(connection);
    LockedUsers users(connection);
    if (std::string why = MoveToChange(users, shown, true); !why.empty())
        return why;
    users.Rows().Delete();
    transaction.Commit();
    return {};
}

} // namespace Quillane::Office
