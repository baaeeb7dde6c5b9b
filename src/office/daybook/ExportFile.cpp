#include "office/daybook/Export.h"
#include "platform/report/ReportPainter.h"
#include "platform/runtime/Failure.h"

#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

namespace Quillane::Office {

namespace {

/// A file that gets its name when it is complete.
class NewFile {
public:
    explicit NewFile(const std::string& path) : file(QString::fromStdString(path)), path_(path) {
        Check(file.open(QIODevice::WriteOnly));
    }
    void Check(bool isDone) const {
        if (!isDone)
            throw Failure(FailureNumber::PathAccess,
                          "The file " + path_ +
                              " could not be written: " + file.errorString().toStdString() +
                              ". Please choose another folder, or free some of the disk.");
    }
    void Finish() { Check(file.commit()); }

    QSaveFile file;

private:
    std::string path_;
};

} // namespace

bool WriteTextFile(const std::string& path, const std::function<bool(const TextSink&)>& write) {
    NewFile file(path);
    const bool isWhole = write([&](std::string_view piece) {
        const auto size = static_cast<qint64>(piece.size());
        file.Check(file.file.write(piece.data(), size) == size);
    });
    if (isWhole)
        file.Finish();
    return isWhole;
}

void WritePdf(const Report& report, const std::string& path) {
    NewFile file(path);
    QPdfWriter writer(&file.file);
    writer.setTitle(QString::fromStdString(report.FileName()));
    ApplyPaper(writer, report);
    const ReportPainter pages(report);
    QPainter painter;
    file.Check(painter.begin(&writer) && pages.PaintPages(painter, writer, 1, pages.PageCount()) &&
               painter.end());
    file.Finish();
}

} // namespace Quillane::Office
