#pragma once

#include "platform/ado/Connection.h"
#include "platform/runtime/Failure.h"

namespace Quillane::Office {

/// A transaction that is rolled back unless it has been committed.
class Transaction {
public:
    explicit Transaction(Connection& connection) : connection_(connection) {
        connection_.BeginTrans();
    }
    ~Transaction() {
        if (!isOpen_)
            return;
        try {
            connection_.RollbackTrans();
        } catch (const Failure&) {
            // The session is gone, and with it the transaction; what went wrong is on its way.
        }
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Where it fails, the transaction is rolled back.
    void Commit() {
        connection_.CommitTrans();
        isOpen_ = false;
    }

private:
    Connection& connection_;
    bool isOpen_ = true;
};

} // namespace Quillane::Office
