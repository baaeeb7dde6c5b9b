#pragma once

#include "platform/ado/Connection.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace Quillane {

/// A login of a SQL Server that is a user of no database yet. The destructor drops the login, and
/// its user in the owner's database. Requires: the owner's connection outlives this object.
class ServerLogin {
public:
    ServerLogin(Connection& owner, const std::string& password)
        : name("Gate_" + owner.DefaultDatabase()), owner_(owner) {
        owner_.Execute("CREATE LOGIN [" + name + "] WITH PASSWORD = '" + Doubled(password, '\'') +
                       "'");
    }
    ~ServerLogin() {
        try {
            owner_.Execute("IF DATABASE_PRINCIPAL_ID('" + name + "') IS NOT NULL DROP USER [" +
                           name + "]");
            owner_.Execute("DROP LOGIN [" + name + "]");
        } catch (const Failure& failure) {
            ADD_FAILURE() << failure.Description();
        }
    }
    ServerLogin(const ServerLogin&) = delete;
    ServerLogin& operator=(const ServerLogin&) = delete;

    const std::string name;

private:
    Connection& owner_;
};

} // namespace Quillane
