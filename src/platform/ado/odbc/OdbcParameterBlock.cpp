#include "platform/ado/odbc/OdbcParameterBlock.h"

#include "platform/ado/odbc/OdbcDiagnostics.h"
#include "platform/ado/odbc/OdbcText.h"

#include <algorithm>

namespace Quillane {

namespace {

using Kind = ResultSet::Kind;

/// Longer texts are bound as long ones: a driver cuts the others at this length without a message.
constexpr std::size_t longestPlainText = 4000;

/// Only a few sizes, so that the server can use one plan for many blocks.
std::size_t SizeOfText(std::size_t longest) {
    std::size_t size = 16;
    while (size < longest)
        size *= 2;
    return longest > longestPlainText ? size : std::min(size, longestPlainText);
}

/// No UTF-8 text has more UTF-16 units than bytes.
std::size_t MostUnits(const ResultSet& rows, const ResultSet::Cell& cell, int row, int field) {
    constexpr std::size_t unitsOfDate = 19;
    switch (cell.kind) {
    case Kind::Null:
        return 1;
    case Kind::Day:
        return unitsOfDate;
    case Kind::Text:
    case Kind::Decimal:
        return cell.text.size();
    default:
        return rows.At(row, field).Text().size();
    }
}

SQLPOINTER NumberAsPointer(std::size_t number) {
    return reinterpret_cast<SQLPOINTER>(static_cast<std::uintptr_t>(number));
}

} // namespace

OdbcParameterBlock::OdbcParameterBlock(const OdbcHandle& statement, const ResultSet& rows,
                                       int first)
    : statement_(statement), rows_(rows), first_(first),
      fields_(static_cast<std::size_t>(rows.FieldCount())) {
    ChooseForms(rows.RowCount());
    ChooseCount(rows.RowCount());
    states_.assign(static_cast<std::size_t>(count_), SQL_PARAM_UNUSED);
    const auto set = [&](SQLINTEGER attribute, SQLPOINTER value) {
        statement_.Check(SQLSetStmtAttrW(statement_.Get(), attribute, value, 0));
    };
    set(SQL_ATTR_PARAMSET_SIZE, NumberAsPointer(static_cast<std::size_t>(count_)));
    set(SQL_ATTR_PARAM_STATUS_PTR, states_.data());
    set(SQL_ATTR_PARAMS_PROCESSED_PTR, &processed_);
    for (int number = 0; number < rows.FieldCount(); ++number) {
        Field& field = fields_[static_cast<std::size_t>(number)];
        Fill(field, number);
        Bind(field, static_cast<SQLUSMALLINT>(number + 1));
    }
}

// A field of Nulls is sent as text, which servers convert to any column type.
void OdbcParameterBlock::ChooseForms(int last) {
    for (int number = 0; number < rows_.FieldCount(); ++number) {
        Field& field = fields_[static_cast<std::size_t>(number)];
        bool hasValues = false;
        for (int row = first_; row < last; ++row) {
            const Kind kind = rows_.CellAt(row, number).kind;
            hasValues = hasValues || kind != Kind::Null;
            if (kind == Kind::Real && field.form == Form::Whole)
                field.form = Form::Real;
            else if (kind != Kind::Null && kind != Kind::Whole && kind != Kind::Real)
                field.form = Form::Text;
        }
        if (!hasValues)
            field.form = Form::Text;
    }
}

// Every text has the space of the longest one.
void OdbcParameterBlock::ChooseCount(int last) {
    constexpr std::size_t mostBytes = 8 << 20;
    std::vector<std::size_t> longest;
    for (int row = first_; row < last; ++row) {
        std::size_t rowBytes = 0;
        longest.clear();
        for (int number = 0; number < rows_.FieldCount(); ++number) {
            const Field& field = fields_[static_cast<std::size_t>(number)];
            const std::size_t units = field.form == Form::Text
                                          ? MostUnits(rows_, rows_.CellAt(row, number), row, number)
                                          : 1;
            longest.push_back(std::max(field.longest, units));
            rowBytes += sizeof(SQLLEN) + (longest.back() + 1) * sizeof(SQLWCHAR);
        }
        if (count_ > 0 && rowBytes * static_cast<std::size_t>(count_ + 1) > mostBytes)
            return;
        for (std::size_t number = 0; number < fields_.size(); ++number)
            fields_[number].longest = longest[number];
        ++count_;
    }
}

void OdbcParameterBlock::Fill(Field& field, int number) {
    if (field.form == Form::Text)
        return FillText(field, number);
    const auto bytes = static_cast<SQLLEN>(sizeof(std::int64_t));
    for (int row = first_; row < first_ + count_; ++row) {
        const ResultSet::Cell cell = rows_.CellAt(row, number);
        field.lengths.push_back(cell.kind == Kind::Null ? SQL_NULL_DATA : bytes);
        if (field.form == Form::Whole)
            field.wholes.push_back(cell.whole);
        else
            field.reals.push_back(cell.kind == Kind::Whole ? static_cast<double>(cell.whole)
                                                           : cell.real);
    }
}

void OdbcParameterBlock::FillText(Field& field, int number) {
    const std::size_t stride = field.longest + 1;
    field.texts.resize(stride * static_cast<std::size_t>(count_));
    auto place = field.texts.begin();
    for (int row = first_; row < first_ + count_; ++row) {
        const ResultSet::Cell cell = rows_.CellAt(row, number);
        const bool isText = cell.kind == Kind::Text || cell.kind == Kind::Decimal;
        if (cell.kind == Kind::Null) {
            field.lengths.push_back(SQL_NULL_DATA);
        } else {
            const OdbcText text = isText ? ToOdbc(cell.text) : ToOdbc(rows_.At(row, number).Text());
            std::copy(text.begin(), text.end(), place);
            field.lengths.push_back(static_cast<SQLLEN>((text.size() - 1) * sizeof(SQLWCHAR)));
        }
        place += static_cast<std::ptrdiff_t>(stride);
    }
}

void OdbcParameterBlock::Bind(Field& field, SQLUSMALLINT number) {
    const auto bind = [&](SQLSMALLINT cType, int sqlType, std::size_t size, void* cells,
                          std::size_t bytesOfCell) {
        statement_.Check(SQLBindParameter(statement_.Get(), number, SQL_PARAM_INPUT, cType,
                                          static_cast<SQLSMALLINT>(sqlType), size, 0, cells,
                                          static_cast<SQLLEN>(bytesOfCell), field.lengths.data()));
    };
    switch (field.form) {
    case Form::Whole:
        return bind(SQL_C_SBIGINT, SQL_BIGINT, 19, field.wholes.data(), sizeof(std::int64_t));
    case Form::Real:
        return bind(SQL_C_DOUBLE, SQL_DOUBLE, 53, field.reals.data(), sizeof(double));
    case Form::Text: {
        const bool isLong = field.longest > longestPlainText;
        return bind(SQL_C_WCHAR, isLong ? SQL_WLONGVARCHAR : SQL_WVARCHAR,
                    SizeOfText(field.longest), field.texts.data(),
                    (field.longest + 1) * sizeof(SQLWCHAR));
    }
    }
}

void OdbcParameterBlock::Execute(std::string_view text) {
    OdbcText odbcText = ToOdbc(text);
    SQLRETURN outcome = SQLExecDirectW(statement_.Get(), odbcText.data(),
                                       static_cast<SQLINTEGER>(odbcText.size() - 1));
    for (; outcome != SQL_NO_DATA; outcome = SQLMoreResults(statement_.Get()))
        if (IsRefused(outcome))
            FailWithDiagnostics(statement_);
}

// Some drivers continue after a refused row and report it only as a warning.
bool OdbcParameterBlock::IsRefused(SQLRETURN outcome) const {
    return !SQL_SUCCEEDED(outcome) || std::ranges::count(states_, SQL_PARAM_ERROR) > 0 ||
           (outcome == SQL_SUCCESS_WITH_INFO && HasFailed(OdbcDiagnosticsOf(statement_)));
}

} // namespace Quillane
