#pragma once

#include "platform/ado/Engine.h"

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace Quillane {

/// What an open connection and its recordsets share: the engine, the observer of the statements and
/// the mark of an open transaction. The mark is the caller's view: it goes by `BeginTrans` and its
/// two ends alone, whatever the engine does meanwhile.
class Session {
public:
    using Observer = std::function<void(std::string_view)>;

    /// The observer is looked up at each statement, and must outlive the session.
    Session(std::unique_ptr<Engine> engine, const Observer& observer)
        : engine_(std::move(engine)), observer_(observer) {}

    /// Fails without running anything while a transaction that the engine has ended waits for its
    /// rollback.
    long Run(std::string_view statement, std::span<const Value> parameters, ResultSet& result);
    void ReadBlocks(std::string_view query, const BlockReader& take);
    void RunForEach(std::string_view statement, const ResultSet& rows);
    void Begin();
    void Commit();
    /// Where none is open it fails, and tells what the engine has refused before: a trap that rolls
    /// back before it reports would bury that.
    void Rollback();

    Engine& EngineInUse() { return *engine_; }

private:
    void Observe(std::string_view text) const;
    void RefuseBrokenTransaction();
    /// What the engine does, with a note of what it refuses.
    template <typename Act>
    void OnEngine(Act act);

    std::unique_ptr<Engine> engine_;
    const Observer& observer_;
    bool inTransaction_ = false;
    std::string lastRefusal_; ///< in the engine's words; empty once a statement has run again
};

} // namespace Quillane
