#include "RawStation.h"

#include "platform/ado/ConnectionAttributes.h"
#include "platform/ado/Engine.h"
#include "platform/ado/odbc/OdbcConnect.h"
#include "platform/ado/odbc/OdbcDiagnostics.h"
#include "platform/ado/odbc/OdbcText.h"
#include "slip/SlipStatement.h"

#include <algorithm>
#include <deque>
#include <utility>

namespace Quillane {

namespace {

/// Parameters of one statement in order. Requires: they exist until it has run.
class Parameters {
public:
    explicit Parameters(const OdbcHandle& statement) : statement_(statement) {}
    ~Parameters() { SQLFreeStmt(statement_.Get(), SQL_RESET_PARAMS); }
    Parameters(const Parameters&) = delete;
    Parameters& operator=(const Parameters&) = delete;

    void Add(double number) {
        numbers_.push_back(number);
        Bind(SQL_C_DOUBLE, SQL_DOUBLE, 53, &numbers_.back(), sizeof(double));
    }
    void Add(std::string_view text) {
        texts_.push_back(ToOdbc(text));
        const std::size_t characters = texts_.back().size() - 1;
        Bind(SQL_C_WCHAR, SQL_WVARCHAR, characters > 0 ? characters : 1, texts_.back().data(),
             static_cast<SQLLEN>(characters * sizeof(SQLWCHAR)));
    }
    void AddNull() { Bind(SQL_C_WCHAR, SQL_WVARCHAR, 1, nullptr, SQL_NULL_DATA); }

private:
    void Bind(SQLSMALLINT cType, SQLSMALLINT sqlType, SQLULEN size, void* data, SQLLEN bytes) {
        lengths_.push_back(bytes);
        statement_.Check(SQLBindParameter(
            statement_.Get(), static_cast<SQLUSMALLINT>(lengths_.size()), SQL_PARAM_INPUT, cType,
            sqlType, size, 0, data, data ? bytes : 0, &lengths_.back()));
    }

    const OdbcHandle& statement_;
    std::deque<double> numbers_;
    std::deque<OdbcText> texts_;
    std::deque<SQLLEN> lengths_;
};

/// True for a duplicate key or a deadlock.
bool IsOfOtherStations(const OdbcHandle& statement) {
    return std::ranges::any_of(OdbcDiagnosticsOf(statement), [](const OdbcDiagnostic& diagnostic) {
        return diagnostic.native == 2627 || diagnostic.native == 1205;
    });
}

OdbcHandle Connected(const OdbcHandle& environment, const std::string& connectionString) {
    return ConnectByOdbc(environment, ConnectionAttributes(connectionString), SignIn{});
}

} // namespace

RawStation::RawStation(const std::string& connectionString)
    : environment_(OdbcEnvironment()), connection_(Connected(environment_, connectionString)),
      statement_(SQL_HANDLE_STMT, connection_) {
    Begin();
}

/// Returns false if another station has caused a conflict.
bool RawStation::Send(std::string_view text) const {
    OdbcText odbcText = ToOdbc(text);
    const SQLRETURN outcome = SQLExecDirectW(statement_.Get(), odbcText.data(), SQL_NTS);
    const bool isRefused = !SQL_SUCCEEDED(outcome) && outcome != SQL_NO_DATA;
    if (isRefused && !IsOfOtherStations(statement_))
        FailWithDiagnostics(statement_);
    SQLFreeStmt(statement_.Get(), SQL_CLOSE);
    return !isRefused;
}

/// Reads all rows and returns their number.
long RawStation::Read(std::string_view text) const {
    OdbcText odbcText = ToOdbc(text);
    statement_.Check(SQLExecDirectW(statement_.Get(), odbcText.data(), SQL_NTS));
    long rows = 0;
    while (SQL_SUCCEEDED(SQLFetch(statement_.Get())))
        ++rows;
    SQLFreeStmt(statement_.Get(), SQL_CLOSE);
    return rows;
}

double RawStation::ReadNumber(std::string_view text) const {
    double number = 0;
    SQLBindCol(statement_.Get(), 1, SQL_C_DOUBLE, &number, 0, nullptr);
    Read(text);
    SQLFreeStmt(statement_.Get(), SQL_UNBIND);
    return number;
}

void RawStation::Begin() {
    Read("Select * from PortSettings");
    id_ = static_cast<std::int32_t>(ReadNumber("Select IsNull(Max(ArrivalID),0)+1 From Arrivals"));
}

void RawStation::TypeId(std::int32_t id) {
    id_ = id;
    IsStored("Select count(*) From Arrivals where ArrivalID = ");
}

std::int32_t RawStation::NextId() const {
    return static_cast<std::int32_t>(ReadNumber("Select IsNull(Max(ArrivalID),0)+1 From Arrivals"));
}

bool RawStation::IsStored(const std::string& count) const {
    return ReadNumber(count + std::to_string(id_)) > 0;
}

bool RawStation::IdIsFree() {
    if (IsStored("Select Count(*) From Arrivals Where ArrivalID = ")) {
        id_ = NextId();
        wasRefused_ = true;
        return false;
    }
    Read("Select NoOfBags*BagWeight As GrossWeight, TareWeight From Arrivals Where ArrivalID = " +
         std::to_string(id_));
    return true;
}

bool RawStation::TrySave(const std::string& driver) {
    if (!IdIsFree() || !IdIsFree())
        return false;
    Send("BEGIN TRANSACTION");
    if (!Store(driver) || !Send("COMMIT TRANSACTION")) {
        Send("IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION");
        return false;
    }
    savedId_ = id_;
    return true;
}

bool RawStation::Store(const std::string& driver) {
    const std::string id = std::to_string(id_);
    if (!StoreHeader())
        return false;
    const std::vector<double> oldLines = OldLines();
    Read("EXEC sp_fkeys @pktable_name = N'Arrivals'");
    Read("Select TOP 1 * From laboratoryreports Where SampleArrivalNo=" + id);
    Read("Select TOP 1 * From purchasebody Where ArrivalId=" + id);
    return Send("Update Arrivals Set IsPosted=0 where arrivalid=" + id) &&
           std::ranges::all_of(oldLines, [this](double line) { return Delete(line); }) &&
           StoreBody(driver);
}

bool RawStation::StoreHeader() const {
    const bool isNew = Read("Select * from Arrivals Where ArrivalId=" + std::to_string(id_)) == 0;
    Parameters values(statement_);
    if (isNew)
        values.Add(id_);
    values.Add("2026-11-20T00:00:00");
    values.AddNull();
    values.AddNull();
    values.Add("1");
    values.Add("6010004");
    values.AddNull();
    values.Add(0.0);
    if (!isNew)
        values.Add(id_);
    return Send(isNew ? "INSERT INTO Arrivals (ArrivalID, ArrivalDate, PermitNo, CenterId, "
                        "CommodityId, SellerId, ContractId, IsPosted) VALUES (?, ?, ?, ?, ?, ?, ?, "
                        "?)"
                      : "UPDATE Arrivals SET ArrivalDate = ?, PermitNo = ?, CenterId = ?, "
                        "CommodityId = ?, SellerId = ?, ContractId = ?, IsPosted = ? WHERE "
                        "ArrivalID = ?");
}

/// The key is the first column.
std::vector<double> RawStation::OldLines() const {
    std::vector<double> lines;
    double line = 0;
    OdbcText text = ToOdbc("Select * From arrivalsbody where arrivalid=" + std::to_string(id_));
    SQLBindCol(statement_.Get(), 1, SQL_C_DOUBLE, &line, 0, nullptr);
    statement_.Check(SQLExecDirectW(statement_.Get(), text.data(), SQL_NTS));
    while (SQL_SUCCEEDED(SQLFetch(statement_.Get())))
        lines.push_back(line);
    SQLFreeStmt(statement_.Get(), SQL_CLOSE);
    SQLFreeStmt(statement_.Get(), SQL_UNBIND);
    return lines;
}

bool RawStation::Delete(double line) const {
    Parameters values(statement_);
    values.Add(line);
    return Send("DELETE FROM arrivalsbody WHERE LineId = ?");
}

bool RawStation::StoreBody(const std::string& driver) const {
    Read("Select * From ArrivalsBody where arrivalid=" + std::to_string(id_));
    return AddLine(true, driver) && AddLine(false, driver) && AddLine(false, driver);
}

bool RawStation::AddLine(bool isFirst, const std::string& driver) const {
    Parameters values(statement_);
    values.Add(id_);
    for (const char* text : {"1", "1", "1"})
        values.Add(text);
    values.Add(40);
    values.Add(isFirst ? "LEA-4521" : "");
    values.Add(isFirst ? 4320.0 : 0.0);
    for (const double number : {0.0, 68.5, 0.0, 5.67, 2734.33})
        values.Add(number);
    values.Add(driver);
    values.Add("");
    values.Add("LEA-4521");
    return Send("INSERT INTO ArrivalsBody (ArrivalId, CommodityId, BagsClassId, BagsTypeId, "
                "NoOfBags, VehicleNo, TareWeight, ScaleDeduction, BagWeight, BagsDeduction, "
                "OtherDeduction, NetWeight, DriverName, BiltyNo, VehicleNoText) VALUES (?, ?, ?, "
                "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
}

} // namespace Quillane
