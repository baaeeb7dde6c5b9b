#include "platform/ado/odbc/OdbcRows.h"

#include "platform/ado/odbc/OdbcDiagnostics.h"
#include "platform/ado/odbc/OdbcText.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>

namespace Quillane {

namespace {

constexpr std::size_t mostBytesInBlock = 4 << 20;
constexpr std::size_t pieceBytes = 32 << 10;

std::size_t Aligned(std::size_t bytes) {
    constexpr std::size_t unit = 16;
    return (bytes + unit - 1) / unit * unit;
}

SQLPOINTER AttributeOf(std::size_t number) {
    return reinterpret_cast<SQLPOINTER>(static_cast<std::uintptr_t>(number));
}

void SetAttribute(const OdbcHandle& statement, SQLINTEGER attribute, SQLPOINTER value) {
    statement.Check(SQLSetStmtAttrW(statement.Get(), attribute, value, 0));
}

/// Reads one result into the arena. The columns follow each other in the block, each with
/// the lengths of its cells in front.
class Reader {
public:
    Reader(const OdbcHandle& statement, int columnCount, OdbcBlock& block, ResultSet& result)
        : statement_(statement), columns_(OdbcColumnsOf(statement, columnCount)), block_(block),
          result_(result) {
        std::vector<std::string> names;
        names.reserve(columns_.size());
        for (const OdbcColumn& column : columns_)
            names.push_back(column.name);
        result_.SetColumns(std::move(names));
        bound_ = static_cast<std::size_t>(
            std::find_if(columns_.begin(), columns_.end(),
                         [](const OdbcColumn& column) { return column.isLong; }) -
            columns_.begin());
        LayOut();
    }

    void ReadAll() {
        Begin();
        while (ReadBlock()) {
        }
        SetRowsOfFetch(1);
        result_.Finish();
    }

    void ReadInBlocks(const BlockReader& take) {
        constexpr int rowsEnough = OdbcBlock::mostRows;
        Begin();
        for (bool isMore = true; isMore;) {
            result_.Clear();
            do
                isMore = ReadBlock();
            while (isMore && result_.RowCount() < rowsEnough);
            isMore = result_.RowCount() > 0 && take(result_) && isMore;
        }
        SetRowsOfFetch(1);
    }

private:
    struct Place {
        SQLLEN* lengths;
        char* cells;
    };

    void Begin() {
        SetRowsOfFetch(rowsInBlock_);
        BindColumns();
    }

    /// False after the last rows.
    bool ReadBlock() {
        const std::size_t fetched = block_.Fetch(statement_);
        for (std::size_t row = 0; row < fetched; ++row)
            AddRow(row);
        return fetched == rowsInBlock_;
    }

    /// While this object exists, the statement must not ask for blocks when it is executed: SQL
    /// Server's own driver would open a cursor on the server, which costs a round trip for each
    /// block and is not possible for every statement.
    void SetRowsOfFetch(std::size_t rows) {
        if (rowsInBlock_ != 1)
            SetAttribute(statement_, SQL_ATTR_ROW_ARRAY_SIZE, AttributeOf(rows));
    }

    void LayOut() {
        std::size_t rowBytes = 0;
        for (const OdbcColumn& column : columns_)
            rowBytes += column.width + sizeof(SQLLEN);
        if (bound_ == columns_.size())
            rowsInBlock_ =
                std::clamp<std::size_t>(mostBytesInBlock / rowBytes, 1, OdbcBlock::mostRows);
        std::size_t bytes = 0;
        for (const OdbcColumn& column : columns_)
            bytes += Aligned(rowsInBlock_ * sizeof(SQLLEN)) + Aligned(rowsInBlock_ * column.width);
        char* at = block_.Room(bytes);
        places_.reserve(columns_.size());
        for (const OdbcColumn& column : columns_) {
            auto* lengths = reinterpret_cast<SQLLEN*>(at);
            at += Aligned(rowsInBlock_ * sizeof(SQLLEN));
            places_.push_back({lengths, at});
            at += Aligned(rowsInBlock_ * column.width);
        }
    }

    void BindColumns() {
        for (std::size_t i = 0; i < bound_; ++i) {
            const OdbcColumn& column = columns_[i];
            statement_.Check(SQLBindCol(statement_.Get(), static_cast<SQLUSMALLINT>(i + 1),
                                        column.CType(), places_[i].cells,
                                        static_cast<SQLLEN>(column.width), places_[i].lengths));
        }
    }

    void AddRow(std::size_t row) {
        result_.BeginRow();
        for (std::size_t i = 0; i < bound_; ++i) {
            const OdbcColumn& column = columns_[i];
            AddOdbcCell(column, places_[i].cells + row * column.width, places_[i].lengths[row],
                        utf8_, result_);
        }
        for (std::size_t i = bound_; i < columns_.size(); ++i)
            columns_[i].isLong ? AddInPieces(i) : AddUnbound(i);
    }

    SQLRETURN GetData(std::size_t i, SQLPOINTER to, std::size_t size, SQLLEN& length) {
        const SQLRETURN outcome =
            SQLGetData(statement_.Get(), static_cast<SQLUSMALLINT>(i + 1), columns_[i].CType(), to,
                       static_cast<SQLLEN>(size), &length);
        statement_.Check(outcome);
        return outcome;
    }

    void AddUnbound(std::size_t i) {
        GetData(i, places_[i].cells, columns_[i].width, *places_[i].lengths);
        AddOdbcCell(columns_[i], places_[i].cells, *places_[i].lengths, utf8_, result_);
    }

    /// A piece may end inside a character, so the pieces are joined first.
    void AddInPieces(std::size_t i) {
        constexpr std::size_t unitsInPiece = pieceBytes / sizeof(SQLWCHAR);
        constexpr std::size_t mostInPiece = unitsInPiece - 1;
        long_.clear();
        for (;;) {
            const std::size_t before = long_.size();
            long_.resize(before + unitsInPiece);
            SQLLEN length = 0;
            const SQLRETURN outcome = GetData(i, long_.data() + before, pieceBytes, length);
            if (length == SQL_NULL_DATA)
                return result_.AddNull();
            const bool isLast =
                outcome == SQL_NO_DATA ||
                (length >= 0 && static_cast<std::size_t>(length) / sizeof(SQLWCHAR) <= mostInPiece);
            const std::size_t taken = outcome == SQL_NO_DATA ? 0
                                      : isLast ? static_cast<std::size_t>(length) / sizeof(SQLWCHAR)
                                               : mostInPiece;
            long_.resize(before + taken);
            if (isLast)
                break;
        }
        utf8_.clear();
        AppendUtf8(utf8_, long_.data(), long_.size());
        result_.AddText(utf8_);
    }

    const OdbcHandle& statement_;
    std::vector<OdbcColumn> columns_;
    OdbcBlock& block_;
    ResultSet& result_;
    std::vector<Place> places_;
    std::size_t bound_ =
        0; ///< columns before the first long one; the others are requested one by one
    std::size_t rowsInBlock_ = 1;
    std::string utf8_;
    OdbcText long_;
};

} // namespace

void OdbcBlock::Attach(const OdbcHandle& statement) {
    SetAttribute(statement, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_);
    SetAttribute(statement, SQL_ATTR_ROW_STATUS_PTR, states_.data());
}

std::size_t OdbcBlock::Fetch(const OdbcHandle& statement) {
    fetched_ = 0;
    const SQLRETURN outcome = SQLFetch(statement.Get());
    statement.Check(outcome);
    // The driver reports a failure after the first row of a block only as a warning.
    const std::span<const SQLUSMALLINT> states(states_.data(), fetched_);
    if (outcome == SQL_SUCCESS_WITH_INFO &&
        (std::ranges::count(states, SQL_ROW_ERROR) > 0 || HasFailed(OdbcDiagnosticsOf(statement))))
        FailWithDiagnostics(statement);
    return fetched_;
}

char* OdbcBlock::Room(std::size_t bytes) {
    if (bytes > size_) {
        // Not initialised: of a large block only the pages that the driver fills are then used.
        memory_.reset(new char[bytes]);
        size_ = bytes;
    }
    return memory_.get();
}

void ReadOdbcRows(const OdbcHandle& statement, int columnCount, OdbcBlock& block,
                  ResultSet& result) {
    Reader(statement, columnCount, block, result).ReadAll();
}

void ReadOdbcBlocks(const OdbcHandle& statement, int columnCount, OdbcBlock& block,
                    const BlockReader& take) {
    ResultSet rows;
    Reader(statement, columnCount, block, rows).ReadInBlocks(take);
}

} // namespace Quillane
