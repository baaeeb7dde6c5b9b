#include "platform/ado/odbc/OdbcHandle.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/odbc/OdbcDiagnostics.h"

namespace Quillane {

OdbcHandle::OdbcHandle(SQLSMALLINT kind, const OdbcHandle& parent) : kind_(kind) {
    const SQLRETURN outcome = SQLAllocHandle(kind, parent.Get(), &handle_);
    if (outcome == SQL_SUCCESS || outcome == SQL_SUCCESS_WITH_INFO)
        return;
    if (parent.Get() == nullptr)
        FailDatabase("The ODBC driver manager cannot be used.");
    FailWithDiagnostics(parent);
}

OdbcHandle::~OdbcHandle() {
    if (handle_ == nullptr)
        return;
    if (kind_ == SQL_HANDLE_DBC)
        SQLDisconnect(handle_);
    SQLFreeHandle(kind_, handle_);
}

void OdbcHandle::Check(SQLRETURN outcome) const {
    if (outcome != SQL_SUCCESS && outcome != SQL_SUCCESS_WITH_INFO && outcome != SQL_NO_DATA)
        FailWithDiagnostics(*this);
}

bool OdbcHandle::Clear() const {
    return SQL_SUCCEEDED(SQLFreeStmt(handle_, SQL_CLOSE)) &&
           SQL_SUCCEEDED(SQLFreeStmt(handle_, SQL_UNBIND)) &&
           SQL_SUCCEEDED(SQLFreeStmt(handle_, SQL_RESET_PARAMS));
}

OdbcHandle OdbcEnvironment() {
    OdbcHandle environment(SQL_HANDLE_ENV, {});
    constexpr std::intptr_t version = SQL_OV_ODBC3;
    environment.Check(SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION,
                                    reinterpret_cast<SQLPOINTER>(version), 0));
    return environment;
}

} // namespace Quillane
