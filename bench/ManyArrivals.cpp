#include "ManyArrivals.h"

#include "Apart.h"
#include "platform/runtime/Failure.h"
#include "setup/EmbeddedSchema.h"

#include <sqlite3.h>

#include <array>
#include <initializer_list>
#include <map>
#include <stdexcept>
#include <string_view>
#include <variant>

namespace Quillane {

namespace {

constexpr std::array<std::string_view, 40> givenNames{
    "Abdul",  "Akbar",  "Akram",  "Aslam",  "Asif",   "Bashir", "Bilal",   "Faisal",
    "Farooq", "Ghulam", "Habib",  "Hamid",  "Ijaz",   "Imran",  "Iqbal",   "Ismail",
    "Jamil",  "Javed",  "Kamran", "Karim",  "Khalid", "Latif",  "Mahmood", "Majid",
    "Malik",  "Nadeem", "Nasir",  "Nazir",  "Noor",   "Qasim",  "Rafiq",   "Rashid",
    "Riaz",   "Sajid",  "Saleem", "Shahid", "Tariq",  "Waqas",  "Yousaf",  "Zulfiqar"};
constexpr std::array<std::string_view, 25> familyNames{
    "Ahmad",  "Ali",    "Bhatti", "Butt",   "Cheema", "Chaudhry", "Dogar",   "Gill", "Gondal",
    "Hashmi", "Janjua", "Khan",   "Kharal", "Mahar",  "Mughal",   "Qureshi", "Rana", "Randhawa",
    "Sandhu", "Sheikh", "Sial",   "Tarar",  "Virk",   "Warraich", "محمود"};
constexpr std::array<std::string_view, 5> trades{"Traders", "& Sons", "Farm", "Ghalla Store",
                                                 "Commission Agents"};
constexpr std::array<std::string_view, 40> cities{
    "Lahore",          "Faisalabad", "Okara",         "Sahiwal",        "Multan",
    "Sargodha",        "Gujranwala", "Khanewal",      "Rahim Yar Khan", "Vehari",
    "Pakpattan",       "Depalpur",   "Renala Khurd",  "Kasur",          "Chunian",
    "Pattoki",         "Jhang",      "Chiniot",       "Toba Tek Singh", "Gojra",
    "Samundri",        "Jaranwala",  "Nankana Sahib", "Sheikhupura",    "Hafizabad",
    "Mandi Bahauddin", "Gujrat",     "Kharian",       "Jhelum",         "Chakwal",
    "Mianwali",        "Bhakkar",    "Layyah",        "Muzaffargarh",   "Kot Addu",
    "Lodhran",         "Bahawalpur", "Hasilpur",      "Burewala",       "Arifwala"};

using Cell = std::variant<std::int64_t, double, std::string_view>;

/// A plain session that fills the file as fast as possible, while no other session has it open.
class Filling {
public:
    explicit Filling(const std::string& file) {
        Check(sqlite3_open_v2(file.c_str(), &session_, SQLITE_OPEN_READWRITE, nullptr));
    }
    ~Filling() {
        for (const auto& [text, statement] : statements_)
            sqlite3_finalize(statement);
        sqlite3_close(session_);
    }
    Filling(const Filling&) = delete;
    Filling& operator=(const Filling&) = delete;

    void Run(const char* script) {
        Check(sqlite3_exec(session_, script, nullptr, nullptr, nullptr));
    }

    void Insert(const char* text, std::initializer_list<Cell> cells) {
        sqlite3_stmt*& statement = statements_[text];
        if (!statement)
            Check(sqlite3_prepare_v2(session_, text, -1, &statement, nullptr));
        int place = 0;
        for (const Cell& cell : cells)
            Bind(statement, ++place, cell);
        if (sqlite3_step(statement) != SQLITE_DONE)
            Check(sqlite3_errcode(session_));
        sqlite3_reset(statement);
    }

    int Count(const char* query) {
        sqlite3_stmt* statement = nullptr;
        Check(sqlite3_prepare_v2(session_, query, -1, &statement, nullptr));
        sqlite3_step(statement);
        const int count = sqlite3_column_int(statement, 0);
        sqlite3_finalize(statement);
        return count;
    }

private:
    static void Bind(sqlite3_stmt* statement, int place, const Cell& cell) {
        if (const auto* whole = std::get_if<std::int64_t>(&cell))
            sqlite3_bind_int64(statement, place, *whole);
        else if (const auto* real = std::get_if<double>(&cell))
            sqlite3_bind_double(statement, place, *real);
        else if (const auto* text = std::get_if<std::string_view>(&cell))
            sqlite3_bind_text64(statement, place, text->data(), text->size(), SQLITE_TRANSIENT,
                                SQLITE_UTF8);
    }
    void Check(int outcome) {
        if (outcome != SQLITE_OK)
            throw Failure(FailureNumber::Database, sqlite3_errmsg(session_),
                          FailureSource::Database);
    }

    sqlite3* session_ = nullptr;
    std::map<std::string_view, sqlite3_stmt*> statements_; ///< by their text
};

std::string AccountNo(int party) {
    return std::to_string(6010000 + party);
}

void AddLists(Filling& file) {
    file.Run(
        "INSERT INTO Commodities (CommodityId, CommodityName, IsPurchaseable, IsSaleable,"
        " IsWheatCommodity) VALUES (1, 'Wheat', 1, 0, 1), (2, 'Wheat Seed', 1, 1, 1),"
        " (3, 'Wheat Government Stock', 1, 0, 1), (4, 'گندم دیسی', 1, 0, 1), (5, 'Maize', 1, 1, 0);"
        "INSERT INTO BagsClasses (BagsClassId, BagsClass) VALUES (1, 'Jute New'), (2, 'Jute Old'),"
        " (3, 'Polypropylene');"
        "INSERT INTO BagsTypes (BagsTypeId, BagsType) VALUES (1, '100 Kg'), (2, '50 Kg'),"
        " (3, '40 Kg')");
}

void AddParties(Filling& file) {
    std::int64_t city = 0;
    for (const std::string_view name : cities)
        file.Insert("INSERT INTO Cities (CityId, CityName) VALUES (?, ?)", {++city, name});
    std::size_t party = 0;
    for (const std::string_view given : givenNames)
        for (const std::string_view family : familyNames)
            for (const std::string_view trade : trades) {
                const std::string account = AccountNo(static_cast<int>(++party));
                const std::string name =
                    std::string(given) + " " + std::string(family) + " " + std::string(trade);
                file.Insert("INSERT INTO ChartOfAccounts (AccountNo, AccountName) VALUES (?, ?)",
                            {account, name});
                file.Insert("INSERT INTO Parties (PartyId, CityId, Address, IsSeller) "
                            "VALUES (?, ?, 'Grain Market', 1)",
                            {account, static_cast<std::int64_t>(party * 7 % cities.size() + 1)});
            }
}

void AddArrival(Filling& file, int id, int daysAgo) {
    // Strides without a common factor with the counts.
    const std::int64_t commodity = id % 10 < 7 ? 1 : id % 5 + 1;
    const std::string seller =
        AccountNo(static_cast<int>(std::int64_t{id} * 2741 % ManyArrivals::PartyCount) + 1);
    file.Insert("INSERT INTO Arrivals (ArrivalID, ArrivalDate, CommodityId, SellerId) VALUES "
                "(?, strftime('%Y-%m-%dT00:00:00', 'now', 'localtime', ? || ' days'), ?, ?)",
                {std::int64_t{id}, std::int64_t{-daysAgo}, commodity, seller});
    const std::string vehicle = "LEA-" + std::to_string(1000 + id % 9000);
    const std::string bilty = std::to_string(id % 10000);
    for (std::int64_t line = 1; line <= ManyArrivals::LinesEach; ++line) {
        const bool isFirst = line == 1;
        file.Insert(
            "INSERT INTO ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, "
            "NoOfBags, VehicleNo, TareWeight, ScaleDeduction, BagWeight, BagsDeduction, "
            "OtherDeduction, NetWeight, DriverName, BiltyNo, VehicleNoText) "
            "VALUES (?, ?, ?, ?, ?, ?, ?, 0, ?, 0, ?, ?, 'Ghulam Abbas', ?, ?)",
            {std::int64_t{id}, commodity, line, line, 30.0 + 10.0 * static_cast<double>(line),
             isFirst ? std::string_view(vehicle) : std::string_view(), isFirst ? 4320.0 : 0.0,
             98.25 + id % 3, 5.5 * static_cast<double>(line), 3920.5, bilty, vehicle});
    }
}

void Fill(const std::string& path, int arrivals) {
    CreateEmbeddedDatabase(path, {.companyName = "Veltrane Flour Mills",
                                  .companyAddress = "",
                                  .companyPhone = "",
                                  .companyEmail = "",
                                  .userName = "first",
                                  .password = "first",
                                  .hashCost = HashCost::Minimum});
    Filling file(path);
    file.Run("PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF; PRAGMA cache_size = -400000;"
             "BEGIN");
    AddLists(file);
    AddParties(file);
    constexpr std::int64_t days = 366 * 100 / 11;
    for (int id = 1; id <= arrivals; ++id)
        AddArrival(file, id, static_cast<int>((arrivals - id) * days / arrivals));
    file.Run("COMMIT");
}

} // namespace

ManyArrivals::ManyArrivals(int arrivals) : arrivals_(arrivals) {
    const std::string path = Folder() + "/Account1.db";
    // In another process, so that the memory used here is not measured.
    if (!RunApart([&] { Fill(path, arrivals); }))
        throw std::runtime_error("The database could not be created.");
    inSearchedYear_ = Filling(path).Count("SELECT count(*) FROM Arrivals WHERE ArrivalDate >= "
                                          "strftime('%Y-%m-%dT00:00:00', 'now', 'localtime', "
                                          "'-365 days')");
}

} // namespace Quillane
