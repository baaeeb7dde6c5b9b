#include "weighment/FrmWeighment.h"

#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/forms/core/Boxes.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "signin/UserLogin.h"

namespace Quillane {

namespace {

bool MayRemove() {
    if (UserLogin->UserLevel() == 1)
        return true;
    MsgBox({"You are not authorised to do this operation", "Alert", BoxIcon::Information});
    return false;
}

// Only this table is checked here, unlike at a save.
bool HasNoPurchase(const std::string& arrival) {
    const Recordset purchases = Con->Execute(
        "select 1 from arrivals where arrivalid in (select ArrivalId from purchasebody) and "
        "arrivalid = " +
        arrival);
    if (purchases.RecordCount() < 1)
        return true;
    MsgBox({"Cannot remove this invoice because it is used in (PurchaseBody) table", "Alert",
            BoxIcon::Exclamation});
    return false;
}

// Deletes the lines that were read before the question. A line that another station has added since
// then stays, or the database refuses to delete the header because of it.
void DeleteArrival(const std::string& arrival, Recordset& bodyRows) {
    Con->Execute("Update Arrivals Set IsPosted=0 where arrivalid=" + arrival);
    const std::int16_t lines = ToInteger(static_cast<double>(bodyRows.RecordCount()));
    for (std::int16_t line = 0; line < lines; ++line) {
        bodyRows.Delete();
        bodyRows.MoveNext();
    }
    Con->Execute("Delete From arrivals where arrivalid=" + arrival);
}

} // namespace

void FrmWeighment::BtnRemove_Click() {
    try {
        if (!MayRemove())
            return;
        const std::string arrival = std::to_string(ArrivalNo);
        Recordset bodyRows;
        bodyRows.Open("Select * From arrivalsbody where arrivalid=" + arrival, *Con, adOpenStatic,
                      adLockOptimistic, adCmdUnspecified);
        if (MsgBox({"Are you sure to remove this arrival?", "Alert", BoxIcon::Question,
                    BoxButtons::YesNo}) == BoxAnswer::No ||
            !HasNoPurchase(arrival))
            return;
        Con->BeginTrans();
        DeleteArrival(arrival, bodyRows);
        Con->CommitTrans();
        BeginNextWeighment();
    } catch (const Failure&) {
        // Fails if the transaction has not begun; that failure is not caught here.
        Con->RollbackTrans();
        ShowError();
    }
}

} // namespace Quillane
