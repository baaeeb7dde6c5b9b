#pragma once

#include "platform/ado/Recordset.h"
#include "platform/forms/controls/TDBCombo.h"
#include "platform/runtime/Numbers.h"
#include "platform/runtime/RowArray.h"

#include <memory>
#include <string>
#include <string_view>

namespace Quillane {

class Screen;

/// Gives every "TDBCombo" of the screen the standard set-up.
void FormatPickLists(Screen& screen);

/// Fills a list from a statement that yields `Name` and `id`. This and the routines below trap
/// every failure and report it; the list is then left cleared and not rebound.
void FillPickList(Recordset& rows, const std::shared_ptr<RowArray>& array,
                  std::string_view statement, TDBCombo& list);

/// The four seller roles; the hidden id of each is the statement that fills the seller list. A null
/// array makes a new one.
void FillSellerTypes(std::shared_ptr<RowArray> array, TDBCombo& list);

/// Null arguments make a recordset or an array of the routine's own.
void FillCommodities(Recordset* rows, std::shared_ptr<RowArray> array, TDBCombo& list,
                     bool isPurchaseable, bool isSaleable, bool isWheat);
void FillBagClasses(Recordset& rows, const std::shared_ptr<RowArray>& array, TDBCombo& list);
void FillBagTypes(Recordset& rows, const std::shared_ptr<RowArray>& array, TDBCombo& list);

/// The id of the first row with exactly this name, case included, as text; "0" if there is none,
/// the empty text after a failure. Moves the list's current row.
std::string GetIdOfName(TDBCombo& list, std::string_view name);

/// The sum of a column by each cell's leading number, each rounded to four decimals; 0 after a
/// failure.
Currency SumColumn(std::int16_t column, const RowArray& array);

/// The first table, other than those excluded (separated by commas), that holds a row depending on
/// the record of `table` that `criteria` names as column=value; the empty text where there is none,
/// and after a failure, which is reported. `criteria` loses its blanks.
std::string GetDependentTable(std::string_view table, std::string& criteria,
                              std::string_view exclusions);

} // namespace Quillane
