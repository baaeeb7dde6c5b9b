#include "platform/ado/Connection.h"

#include "platform/ado/AdoFailure.h"
#include "platform/ado/ConnectionAttributes.h"
#include "platform/ado/Session.h"
#include "platform/runtime/Failure.h"

#include <utility>

namespace Quillane {

Connection::Connection() = default;
Connection::~Connection() = default;

void Connection::SetEmbeddedSupport(EmbeddedSupport support) {
    support_ = std::move(support);
}

void Connection::Open(std::string_view connectionString, std::string_view userId,
                      std::string_view password, int) {
    if (session_)
        FailAccess(FailureNumber::ObjectOpen);
    const SignIn signIn{userId, password, ConnectionTimeout, CommandTimeout};
    auto engine = OpenEngine(ConnectionAttributes(connectionString), signIn, support_);
    session_ = std::make_shared<Session>(std::move(engine), StatementObserver);
}

void Connection::Close() {
    OpenSession();
    session_.reset();
}

int Connection::State() const {
    return session_ ? adStateOpen : adStateClosed;
}

Session& Connection::OpenSession() const {
    if (!session_)
        FailAccess(FailureNumber::ObjectClosed);
    return *session_;
}

std::string Connection::DefaultDatabase() const {
    return OpenSession().EngineInUse().DefaultDatabase();
}

std::string Connection::DatabaseFile() const {
    return OpenSession().EngineInUse().DatabaseFile();
}

bool Connection::WriteBack() {
    return OpenSession().EngineInUse().WriteBack();
}

Recordset Connection::Execute(std::string_view statement, int) {
    ResultSet rows;
    OpenSession().Run(statement, {}, rows);
    if (rows.FieldCount() == 0)
        return {};
    return {std::move(rows), statement, session_, adLockReadOnly};
}

void Connection::ReadBlocks(std::string_view query, const BlockReader& take) {
    OpenSession().ReadBlocks(query, take);
}

void Connection::ExecuteForEach(std::string_view statement, const ResultSet& rows) {
    OpenSession().RunForEach(statement, rows);
}

void Connection::BeginTrans() {
    OpenSession().Begin();
}
void Connection::CommitTrans() {
    OpenSession().Commit();
}
void Connection::RollbackTrans() {
    OpenSession().Rollback();
}

} // namespace Quillane
