#pragma once

#include "data/Con.h"
#include "station/StationDatabase.h"

#include <string>
#include <string_view>
#include <vector>

namespace Quillane {

/// `Con`, open on a new database with the station's schema and without sample rows. Account 601 is
/// a supplier in a city, 602 a supplier whose account is not editable, 603 a buyer without a city,
/// and 604 a broker.
class OpenedDatabase : public StationDatabase {
public:
    OpenedDatabase() : StationDatabase(ParticularsOf("Veltrane", "ali", "wheat")) {
        Con = std::make_unique<Connection>();
        Open(*Con);
        AddRows();
        Con->StatementObserver = [this](std::string_view text) {
            statements.push_back(ComparedWords(std::string(text)));
        };
    }
    ~OpenedDatabase() { Con.reset(); }

    /// Runs a statement that is not recorded.
    void Run(std::string_view statement) {
        const auto seen = statements;
        Con->Execute(statement);
        statements = seen;
    }

    std::vector<std::string> statements; ///< every text that ran on `Con`

private:
    void AddRows() {
        for (const char* statement :
             {"Insert Into Cities (CityId, CityName) Values (1, 'Lahore')",
              "Insert Into ChartOfAccounts (AccountNo, AccountName, IsEditable) Values "
              "('601', 'Zahid Traders', 1), ('602', 'Akbar Mills', 0), ('603', 'Bashir', 1), "
              "('604', 'Chaudhry', 1)",
              "Insert Into Parties (PartyId, CityId, IsSeller, IsBuyer, IsBroker) Values "
              "('601', 1, 1, 0, 0), ('602', 1, 1, 0, 0), ('603', Null, 0, 1, 0), "
              "('604', Null, 0, 0, 1)",
              "Insert Into Commodities "
              "(CommodityId, CommodityName, IsPurchaseable, IsSaleable, IsWheatCommodity) Values "
              "(1, 'Wheat', 1, 0, 1), (2, 'Flour', 0, 1, 1), (3, 'Jute bags', 1, 0, 0), "
              "(4, 'Scrap', 0, 0, 0)",
              "Insert Into BagsClasses (BagsClassId, BagsClass) Values (2, 'Old'), (1, 'New')",
              "Insert Into BagsTypes (BagsTypeId, BagsType) Values (1, 'Plastic'), (2, 'Jute')",
              "Insert Into Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) Values "
              "(12, '2026-11-20T00:00:00', 1, '601'), (13, '2026-11-20T00:00:00', 1, '601')"})
            Con->Execute(statement);
    }
};

} // namespace Quillane
