#pragma once

#include "platform/ado/Connection.h"
#include "platform/runtime/Failure.h"

namespace Quillane {

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
            // The connection is lost, and the transaction with it. The exception that is being
            // handled reports this.
        }
    }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// If it fails, the destructor rolls the transaction back.
    void Commit() {
        connection_.CommitTrans();
        isOpen_ = false;
    }

private:
    Connection& connection_;
    bool isOpen_ = true;
};

} // namespace Quillane
