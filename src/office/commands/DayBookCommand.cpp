#include "office/commands/DayBookCommand.h"

#include "office/daybook/Export.h"
#include "office/records/Texts.h"

#include <ostream>

namespace Quillane::Office {

namespace {

bool NeverCancel(const DayBook&) {
    return true;
}

void WriteCsv(DayBook& book, const std::optional<SumsBy>& sums, const TextSink& sink) {
    if (sums)
        WriteSumsCsv(book, *sums, sink, NeverCancel);
    else
        WriteArrivalsCsv(book, sink, NeverCancel);
}

} // namespace

ExitCode WriteDayBook(Connection& connection, const Request& request, Terminal& terminal) {
    const DayBookRequest& wanted = request.dayBook;
    DayBook book(connection, wanted.filter);
    if (request.file == "-") {
        WriteCsv(book, wanted.sums, [&](std::string_view piece) { terminal.out << piece; });
        terminal.out << std::flush;
        return ExitCode::Done;
    }
    if (wanted.isWorkbook)
        WriteWorkbook(book, request.file, NeverCancel);
    else
        WriteTextFile(request.file, [&](const TextSink& sink) {
            WriteCsv(book, wanted.sums, sink);
            return true;
        });
    terminal.out << Counted(book.Count(), "arrival", "arrivals") << " of "
                 << ShownDate(wanted.filter.from) << " to " << ShownDate(wanted.filter.to)
                 << " written to " << request.file << ".\n";
    return ExitCode::Done;
}

} // namespace Quillane::Office
