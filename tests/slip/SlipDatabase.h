#pragma once

#include "slip/SlipSample.h"
#include "slip/SlipStatement.h"
#include "station/ArrivalRows.h"
#include "station/StationDatabase.h"

#include <memory>
#include <string>
#include <string_view>

namespace Quillane {

/// A new database, with arrivals to print: number 1042 is a usual load of two bag lines,
/// weighed at 12437 and 4320 kg with a deduction of 17 kg.
class SlipDatabase : public StationDatabase {
public:
    SlipDatabase() : StationDatabase(ParticularsOf("Quillane Flour Mills", "ali", "wheat")) {
        Open(connection);
        AddTables();
        AddArrival(1042, "6001");
        AddLine(1042, {.bags = 60, .tare = 4320, .otherDeduction = 10.2, .vehicle = "LEB-4217"});
        AddLine(1042, {.bagsClass = 2, .bagsType = 2, .bags = 40, .otherDeduction = 6.8});
    }

    void AddParty(std::string_view id, std::string_view name, std::string_view address,
                  std::string_view cityId) {
        Run("Insert Into ChartOfAccounts (AccountNo, AccountName) Values ('", id, "', '", name,
            "')");
        Run("Insert Into Parties (PartyId, CityId, Address) Values ('", id, "', ", cityId, ", '",
            address, "')");
    }
    void AddArrival(int number, std::string_view partyId) {
        StoreArrival(connection, number, "2026-11-20", 1, partyId);
    }
    void AddLine(int arrival, const LineRow& line) { StoreLine(connection, arrival, 1, line); }
    void AddLines(int arrival, int count) {
        for (int line = 0; line < count; ++line)
            AddLine(arrival, {.bagsClass = 1 + line % 2, .bagsType = 1 + line % 3});
    }

    /// Runs a statement whose parts are the arguments.
    template <typename... Pieces>
    void Run(const Pieces&... pieces) {
        RunPieces(connection, pieces...);
    }

    std::shared_ptr<Recordset> RowsOf(int arrival) {
        auto rows = std::make_shared<Recordset>();
        rows->Open(SlipStatement(arrival), connection, adOpenStatic, adLockReadOnly, -1);
        return rows;
    }

    const std::string& Folder() const { return folder.path; }

    Connection connection;

private:
    void AddTables() {
        Run("Insert Into Cities (CityId, CityName) Values (1, 'Faisalabad'), (2, 'لاہور')");
        Run("Insert Into Commodities (CommodityId, CommodityName) Values (1, 'Wheat')");
        Run("Insert Into BagsClasses (BagsClassId, BagsClass) Values (1, 'A class'), (2, 'Torn')");
        Run("Insert Into BagsTypes (BagsTypeId, BagsType) Values (1, 'Jute 100 kg'), "
            "(2, 'Polypropylene 50 kg'), (3, 'Cotton')");
        AddParty("6001", "Chaudhry Grain Traders", "14 Ghalla Mandi Road", "1");
    }
};

} // namespace Quillane
