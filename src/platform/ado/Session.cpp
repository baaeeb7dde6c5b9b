#include "platform/ado/Session.h"

#include "platform/ado/AdoFailure.h"
#include "platform/runtime/Failure.h"

namespace Quillane {

template <typename Act>
void Session::OnEngine(Act act) {
    try {
        act();
        lastFailure_.clear();
    } catch (const Failure& failure) {
        lastFailure_ = failure.Description() + "\n";
        throw;
    }
}

long Session::Run(std::string_view statement, std::span<const Value> parameters,
                  ResultSet& result) {
    RefuseEndedTransaction();
    Observe(statement);
    long changed = -1;
    OnEngine([&] { changed = engine_->Run(statement, parameters, result); });
    return changed;
}

void Session::ReadBlocks(std::string_view query, const BlockReader& take) {
    RefuseEndedTransaction();
    Observe(query);
    OnEngine([&] { engine_->ReadBlocks(query, take); });
}

void Session::RunForEach(std::string_view statement, const ResultSet& rows) {
    RefuseEndedTransaction();
    Observe(statement);
    OnEngine([&] { engine_->RunForEach(statement, rows); });
}

void Session::Begin() {
    if (inTransaction_)
        FailDatabase("A transaction is already open on this connection.");
    Observe("BeginTrans");
    OnEngine([&] { engine_->Begin(); });
    inTransaction_ = true;
}

void Session::Commit() {
    if (!inTransaction_)
        FailDatabase("No transaction is open, so none can be committed.");
    RefuseEndedTransaction();
    Observe("CommitTrans");
    OnEngine([&] { engine_->Commit(); });
    inTransaction_ = false;
}

void Session::Rollback() {
    if (!inTransaction_)
        FailDatabase(lastFailure_ + "No transaction is open, so none can be rolled back.");
    Observe("RollbackTrans");
    inTransaction_ = false;
    engine_->Rollback();
}

void Session::Observe(std::string_view text) const {
    if (observer_)
        observer_(text);
}

void Session::RefuseEndedTransaction() {
    if (inTransaction_ && !engine_->InTransaction())
        FailDatabase("The database has rolled back the open transaction: nothing of it is stored. "
                     "Please try again.");
}

} // namespace Quillane
