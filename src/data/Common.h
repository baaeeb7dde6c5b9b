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

/// Applies the standard layout of a pick list to every "TDBCombo" of the screen.
void FormatPickLists(Screen& screen);

/// Fills a list with the rows of a statement that returns the columns `Name` and `id`. This
/// function and those below catch every failure and report it; the list is then left empty and
/// unbound.
void FillPickList(Recordset& rows, const std::shared_ptr<RowArray>& array,
                  std::string_view statement, TDBCombo& list);

/// Fills a list with the four seller types. The hidden id of each is the statement that fills the
/// seller list. With a null `array` a new one is created.
void FillSellerTypes(std::shared_ptr<RowArray> array, TDBCombo& list);

/// With a null `rows` or `array` a new recordset or array is created.
void FillCommodities(Recordset* rows, std::shared_ptr<RowArray> array, TDBCombo& list,
                     bool isPurchaseable, bool isSaleable, bool isWheat);
void FillBagClasses(Recordset& rows, const std::shared_ptr<RowArray>& array, TDBCombo& list);
void FillBagTypes(Recordset& rows, const std::shared_ptr<RowArray>& array, TDBCombo& list);

/// Returns the id of the first row with exactly this name (case-sensitive) as text; "0" if there is
/// none, the empty text after a failure. Changes the current row of the list.
std::string GetIdOfName(TDBCombo& list, std::string_view name);

/// Adds the leading numbers of the cells of a column, each rounded to four decimals; 0 after a
/// failure.
Currency SumColumn(std::int16_t column, const RowArray& array);

/// Returns the first table that has a row with a foreign key to a record of `table`; the empty text
/// if there is none, and after a failure, which is reported. `criteria` names the record as
/// column=value; its blanks are removed. `exclusions` are table names, separated by commas, that
/// are not searched.
std::string GetDependentTable(std::string_view table, std::string& criteria,
                              std::string_view exclusions);

} // namespace Quillane
