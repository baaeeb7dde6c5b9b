#include "scale/IndicatorGuide.h"

#include "platform/forms/controls/ControlSymbols.h"

#include <QByteArray>
#include <QProcess>

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <sstream>

namespace Quillane::Testing {

namespace {

// Prints one line for each frame: layout, weight, 1 while moving, the bytes in hex.
constexpr const char* frameWriter = R"(
import pathlib, sys
sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(sys.argv[1]).parent))
from layouts import LAYOUTS
for name, layout in LAYOUTS.items():
    for weight in sys.argv[2:]:
        for moving in (0, 1):
            print(name, weight, moving, layout(float(weight), bool(moving)).hex())
)";

using Cells = std::vector<std::string>;

/// The cells of a row of a table, without the code marks.
Cells CellsOf(const std::string& line) {
    Cells cells;
    std::istringstream row(line.substr(1));
    for (std::string cell; std::getline(row, cell, '|');) {
        std::erase(cell, '`');
        cell.erase(0, cell.find_first_not_of(' '));
        cell.erase(cell.find_last_not_of(' ') + 1);
        cells.push_back(cell);
    }
    return cells;
}

/// "100", "35 from 10 kg up", "17 to 28, by the weight" or "10 at best".
void TakeShare(Advice& advice, const std::string& text) {
    std::istringstream words(text);
    std::string word;
    words >> advice.right >> word;
    advice.rightAtMost = advice.right;
    if (word == "from")
        words >> advice.leastWeight;
    if (word == "to")
        words >> advice.rightAtMost;
}

void TakeRow(Advice& advice, const Cells& cells) {
    if (cells.size() == 6) {
        advice.example = cells[1];
        advice.direction = cells[2];
        advice.length = cells[3];
        advice.reversed = cells[4];
        advice.usable = cells[2] != "none";
        TakeShare(advice, cells[5]);
    } else if (cells.size() == 4) {
        advice.benchNotModified = cells[1];
        advice.benchModified = cells[2];
        advice.benchRight = std::stoi(cells[3]);
    } else {
        ADD_FAILURE() << "A row of " << cells.size() << " cells: " << cells.front();
    }
}

/// The rows of the guide's tables that begin with this text.
std::vector<Cells> RowsOfTheGuide(const std::regex& start) {
    std::vector<Cells> rows;
    std::ifstream guide(QUILLANE_INDICATOR_GUIDE);
    EXPECT_TRUE(guide.is_open()) << QUILLANE_INDICATOR_GUIDE;
    for (std::string line; std::getline(guide, line);)
        if (std::regex_search(line, start))
            rows.push_back(CellsOf(line));
    EXPECT_FALSE(rows.empty());
    return rows;
}

} // namespace

std::string Notation(const std::string& bytes) {
    QString text;
    for (const QChar character : QString::fromLatin1(bytes)) {
        const QString name = NameOfUnseen(character);
        text += name.isEmpty() ? QString(character) : "<" + name + ">";
    }
    return text.toStdString();
}

std::map<std::string, Advice> AdviceOfTheGuide() {
    std::map<std::string, Advice> advice;
    for (const Cells& cells : RowsOfTheGuide(std::regex("^\\| `")))
        TakeRow(advice[cells.front().substr(0, cells.front().find(' '))], cells);
    return advice;
}

std::map<std::chrono::milliseconds, std::map<int, int>> WrongOfPauses() {
    std::map<std::chrono::milliseconds, std::map<int, int>> wrong;
    for (const Cells& cells : RowsOfTheGuide(std::regex("^\\| [0-9.]+ s \\|"))) {
        const std::chrono::duration<double> pause(std::stod(cells.at(0)));
        wrong[std::chrono::round<std::chrono::milliseconds>(pause)] = {
            {1200, std::stoi(cells.at(1))},
            {2400, std::stoi(cells.at(2))},
            {9600, std::stoi(cells.at(3))}};
    }
    return wrong;
}

std::map<std::string, std::vector<Frame>> FramesOfTheTool(const std::vector<int>& weights) {
    QStringList arguments{"-c", frameWriter, QUILLANE_INDICATOR};
    for (const int weight : weights)
        arguments << QString::number(weight);
    QProcess tool;
    tool.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    tool.start(QUILLANE_PYTHON, arguments);
    EXPECT_TRUE(tool.waitForFinished());
    std::map<std::string, std::vector<Frame>> layouts;
    std::istringstream lines(tool.readAll().toStdString());
    std::string name, bytes;
    for (Frame frame; lines >> name >> frame.weight >> frame.moving >> bytes;) {
        frame.bytes = QByteArray::fromHex(QByteArray::fromStdString(bytes)).toStdString();
        layouts[name].push_back(frame);
    }
    EXPECT_FALSE(layouts.empty());
    return layouts;
}

} // namespace Quillane::Testing
