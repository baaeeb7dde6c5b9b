#pragma once

#include "platform/ado/Engine.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace Quillane {

/// The state that an open connection shares with its recordsets: the engine, the observer of the
/// statements, and whether a transaction is open. The latter is the caller's view: it changes only
/// with `BeginTrans`, `CommitTrans` and `RollbackTrans`, not if the engine ends the transaction.
class Session {
public:
    using Observer = std::function<void(std::string_view)>;

    /// The observer is called for each statement. Requires: it outlives the session.
    Session(std::unique_ptr<Engine> engine, const Observer& observer)
        : engine_(std::move(engine)), observer_(observer) {}

    /// Errors: if the engine has ended the open transaction, every statement fails until the
    /// rollback.
    long Run(std::string_view statement, std::span<const Value> parameters, ResultSet& result);
    void ReadBlocks(std::string_view query, const BlockReader& take);
    void RunForEach(std::string_view statement, const ResultSet& rows);
    void Begin();
    void Commit();
    /// Errors: no transaction is open. The text then includes that of the engine's last failure,
    /// which would otherwise be lost if an error trap rolls back before it reports.
    void Rollback();

    Engine& EngineInUse() { return *engine_; }

private:
    void Observe(std::string_view text) const;
    void RefuseEndedTransaction();
    /// Calls the engine and keeps the text of its failure.
    template <typename Act>
    void OnEngine(Act act);

    std::unique_ptr<Engine> engine_;
    const Observer& observer_;
    bool inTransaction_ = false;
    std::string lastFailure_; ///< the engine's text; empty after a successful statement
};

} // namespace Quillane
