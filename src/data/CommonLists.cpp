#include "data/Common.h"
#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/forms/core/Screen.h"

#include <array>

namespace Quillane {

namespace {

struct SellerType {
    std::string_view name;
    std::string_view statement;
};

// One party list for each type. All but the first exclude accounts that are not editable.
constexpr std::array<SellerType, 4> sellerTypes{{
    {"ALL",
     "SELECT ChartOfAccounts.AccountNo AS ID, dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS "
     "Name FROM ChartOfAccounts INNER JOIN Parties ON ChartOfAccounts.AccountNo = Parties.PartyId "
     "LEFT OUTER JOIN Cities ON Parties.CityId = Cities.CityId  ORDER BY "
     "ChartOfAccounts.AccountName"},
    {"Suppliers",
     "SELECT ChartOfAccounts.AccountNo AS ID, dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS "
     "Name FROM ChartOfAccounts INNER JOIN Parties ON ChartOfAccounts.AccountNo = Parties.PartyId "
     "LEFT OUTER JOIN Cities ON Parties.CityId = Cities.CityId WHERE     (Parties.IsSeller = 1) "
     "AND (ChartOfAccounts.IsEditable = 1) ORDER BY ChartOfAccounts.AccountName"},
    {"Buyers",
     "SELECT ChartOfAccounts.AccountNo AS ID, dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS "
     "Name FROM ChartOfAccounts INNER JOIN Parties ON ChartOfAccounts.AccountNo = Parties.PartyId "
     "LEFT OUTER JOIN Cities ON Parties.CityId = Cities.CityId WHERE     (Parties.IsBuyer = 1) "
     "AND (ChartOfAccounts.IsEditable = 1) ORDER BY ChartOfAccounts.AccountName"},
    {"Brokers",
     "SELECT ChartOfAccounts.AccountNo AS ID, dbo.FunGetPartyName(ChartOfAccounts.AccountNo) AS "
     "Name FROM ChartOfAccounts INNER JOIN Parties ON ChartOfAccounts.AccountNo = Parties.PartyId "
     "LEFT OUTER JOIN Cities ON Parties.CityId = Cities.CityId WHERE     (Parties.IsBroker = 1) "
     "AND (ChartOfAccounts.IsEditable = 1) ORDER BY ChartOfAccounts.AccountName"},
}};

void Format(TDBCombo& list) {
    list.Layout.ColumnHeaders = false;
    list.Layout.RowDividerStyle = 2;
    list.Layout.ScrollBars = 2;
    list.Columns[1].Visible = false;
    list.Layout.AutoCompletion = true;
    list.Layout.AutoDropDown = true;
    list.Layout.LimitToList = true;
    list.Layout.AllowColMove = false;
    list.Layout.AllowRowSizing = false;
    list.Layout.EmptyRows = false;
    list.Layout.AllowColSelect = false;
    list.Layout.ExtendRightColumn = true;
    list.Splits[0].Columns[1].AllowSizing = false;
    list.Layout.Appearance = 0;
    list.Layout.BorderStyle = 1;
    list.Splits[0].Columns[1].Visible = false;
}

void ReadNamesAndIds(Recordset& rows, RowArray& array) {
    const int count = rows.RecordCount();
    array.ReDim(count - 1, 1);
    for (int row = 0; row < count; ++row) {
        array.Set(row, 0, rows.Fields("Name").Text());
        array.Set(row, 1, rows.Fields("id").Text());
        rows.MoveNext();
    }
}

void Bind(const std::shared_ptr<RowArray>& array, TDBCombo& list) {
    list.ClearFields();
    list.SetArray(array);
    list.ReBind();
}

/// The common part of all lists that come from the database. Throws on failure.
void Fill(Recordset& rows, const std::shared_ptr<RowArray>& array, std::string_view statement,
          TDBCombo& list) {
    array->Clear();
    list.ClearFields();
    list.SetText("");
    if (rows.State() == adStateOpen)
        rows.Close();
    rows.Open(statement, *Con, adOpenStatic, adLockReadOnly, adCmdUnspecified);
    ReadNamesAndIds(rows, *array);
    Bind(array, list);
    rows.Close();
}

std::string CommodityStatement(bool isPurchaseable, bool isSaleable, bool isWheat) {
    std::string statement = " select commodityid as id, dbo.fungetcommodity(commodityid) as name "
                            "from commodities Where 1 = 1";
    if (isPurchaseable)
        statement += " and IsPurchaseable = 1";
    if (isSaleable)
        statement += " and IsSaleable = 1";
    if (isWheat)
        statement += " and IsWheatCommodity = 1";
    // All three flags together mean every commodity. This is intended.
    if (isPurchaseable && isSaleable && isWheat)
        statement = "select commodityid as id, dbo.fungetcommodity(commodityid) as name from "
                    "commodities Where 1 = 1";
    return statement;
}

} // namespace

void FormatPickLists(Screen& screen) {
    try {
        for (Control* control : screen.Controls())
            if (control->TypeName() == "TDBCombo")
                Format(dynamic_cast<TDBCombo&>(*control));
    } catch (const std::exception&) {
        ShowError();
    }
}

void FillPickList(Recordset& rows, const std::shared_ptr<RowArray>& array,
                  std::string_view statement, TDBCombo& list) {
    try {
        Fill(rows, array, statement, list);
    } catch (const std::exception&) {
        ShowError();
    }
}

void FillSellerTypes(std::shared_ptr<RowArray> array, TDBCombo& list) {
    try {
        if (!array)
            array = std::make_shared<RowArray>();
        list.ClearFields();
        list.SetText("");
        array->ReDim(static_cast<int>(sellerTypes.size()) - 1, 1);
        for (int row = 0; row < array->RowCount(); ++row) {
            const SellerType& type = sellerTypes[static_cast<std::size_t>(row)];
            array->Set(row, 0, type.name);
            array->Set(row, 1, type.statement);
        }
        Bind(array, list);
    } catch (const std::exception&) {
        ShowError();
    }
}

void FillCommodities(Recordset* rows, std::shared_ptr<RowArray> array, TDBCombo& list,
                     bool isPurchaseable, bool isSaleable, bool isWheat) {
    try {
        Recordset own;
        if (!array)
            array = std::make_shared<RowArray>();
        Fill(rows ? *rows : own, array, CommodityStatement(isPurchaseable, isSaleable, isWheat),
             list);
    } catch (const std::exception&) {
        ShowError();
    }
}

void FillBagClasses(Recordset& rows, const std::shared_ptr<RowArray>& array, TDBCombo& list) {
    try {
        Fill(rows, array, "select BagsClassid as ID, BagsClass as Name from bagsclasses", list);
    } catch (const std::exception&) {
        ShowError();
    }
}

void FillBagTypes(Recordset& rows, const std::shared_ptr<RowArray>& array, TDBCombo& list) {
    try {
        Fill(rows, array,
             "select BagsTypeID as ID, BagsType As Name from bagstypes Order By BagsType", list);
    } catch (const std::exception&) {
        ShowError();
    }
}

std::string GetIdOfName(TDBCombo& list, std::string_view name) {
    try {
        list.SetBookmark(list.FindRow(0, name));
        return list.Bookmark() ? list.ColumnText(1) : "0";
    } catch (const std::exception&) {
        ShowError();
        return "";
    }
}

Currency SumColumn(std::int16_t column, const RowArray& array) {
    try {
        Currency sum;
        for (int row = 0; row < array.RowCount(); ++row)
            sum += ToCurrency(Val(array.Get(row, column)));
        return sum;
    } catch (const std::exception&) {
        ShowError();
        return {};
    }
}

} // namespace Quillane
