#pragma once

#include "office/daybook/DayBook.h"
#include "platform/ado/Connection.h"
#include "station/ArrivalRows.h"
#include "station/StationDatabase.h"

#include <functional>
#include <string>
#include <vector>

namespace Quillane::Office {

inline Date DayOf(int year, unsigned month, unsigned day) {
    return std::chrono::year(year) / std::chrono::month(month) / std::chrono::day(day);
}

/// A database with the sample rows, to which arrivals of 2024 are added.
class DayBookDatabase : public StationDatabase {
public:
    DayBookDatabase() { Open(connection); }

    void AddArrival(int id, const std::string& day, const std::string& party, int commodity,
                    const std::vector<LineRow>& lines) {
        StoreArrival(connection, id, day, commodity, party);
        for (const LineRow& line : lines)
            StoreLine(connection, id, commodity, line);
    }
    /// Adds in one transaction.
    void Together(const std::function<void()>& add) {
        connection.BeginTrans();
        add();
        connection.CommitTrans();
    }
    /// One line of 100 bags.
    void AddLoad(int id, const std::string& day, double gross, double tare, double net,
                 const std::string& vehicle = "LEA-1") {
        AddArrival(id, day, "6010001", 1,
                   {{.bags = 100,
                     .bagWeight = gross / 100,
                     .tare = tare,
                     .otherDeduction = gross - net,
                     .net = net,
                     .vehicle = vehicle}});
    }
    /// Enough digits to read back the same number.
    static std::string Exact(double number) {
        char text[32];
        std::snprintf(text, sizeof text, "%.17e", number);
        return text;
    }

    DayBook ReadAll(const ArrivalFilter& filter) {
        DayBook book(connection, filter);
        while (book.ReadOn()) {
        }
        return book;
    }
    std::vector<int> Ids(const ArrivalFilter& filter) {
        std::vector<int> ids;
        DayBook book(connection, filter);
        book.Visit = [&](const Arrival& arrival) { ids.push_back(arrival.id); };
        while (book.ReadOn()) {
        }
        return ids;
    }

    Connection connection;
};

inline ArrivalFilter Year2024() {
    return {.from = DayOf(2024, 1, 1), .to = DayOf(2024, 12, 31)};
}

} // namespace Quillane::Office
