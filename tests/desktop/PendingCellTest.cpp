// A cell of the bag grid is still being edited when the save begins: the shown text is stored.

#include "Station.h"

namespace Quillane::Testing {
namespace {

struct Way {
    const char* name;
    void (*save)(Operator& by, FrmWeighment& screen);
};

void AnswerSave(Operator& by) {
    by.Answer("Alert", "Are you sure to save this Weighment?", {"Return"});
}

void ByCtrlS(Operator& by, FrmWeighment& /*screen*/) {
    by.Press({"ctrl+s"});
    AnswerSave(by);
}

void ByEnterAndCtrlS(Operator& by, FrmWeighment& /*screen*/) {
    by.WithoutLooking({"key", "--delay", "0", "Return", "ctrl+s"});
    AnswerSave(by);
}

void ByEntersDownToTheButton(Operator& by, FrmWeighment& /*screen*/) {
    by.Press({"Return", "Return", "Return", "Return", "Return", "Return"});
    by.UntilActive("BtnSave");
    by.Press({"Return"});
}

void ByClick(Operator& by, FrmWeighment& screen) {
    by.Click(screen.BtnSave);
}

class PendingCell : public Station, public testing::WithParamInterface<Way> {
protected:
    /// Fills all boxes, edits bag lines by these keys, and saves while the last cell is being
    /// edited.
    void SaveWhileEditing(const QStringList& keys) {
        WorkOnWeighment([&](Operator& by, FrmWeighment& screen) {
            EnterAllButBagLines(by);
            EnterGrid(by, screen);
            by.Press(keys);
            by.Until("a cell being edited", [&] { return screen.Grid.IsEditing(); });
            GetParam().save(by, screen);
            by.Answer("Confirmation", "Do you want to print?", {"Return"});
            by.UntilInFront("Weighment for Veltrane");
            by.Until("the next id", [&] { return screen.TxtArrivalId.Text() == "1044"; });
        });
    }
    std::vector<Row> StoredLines() const {
        return Stored("Select BagsClassId, BagsTypeId, NoOfBags From ArrivalsBody"
                      " Where ArrivalId = 1043 Order By NoOfBags");
    }
};

TEST_P(PendingCell, OfTheFirstLineIsStored) {
    SaveWhileEditing({"p", "o", "Right", "5", "Right", "2", "5"});
    EXPECT_EQ(StoredLines(), (std::vector<Row>{{"3", "2", "25"}}));
}

TEST_P(PendingCell, OfAnotherNewLineIsStored) {
    SaveWhileEditing({"p", "Right", "5", "Right", "2", "5", "Down", "Left", "Left", "l", "Right",
                      "m", "Right", "3", "0"});
    EXPECT_EQ(StoredLines(), (std::vector<Row>{{"3", "2", "25"}, {"4", "5", "30"}}));
}

TEST_P(PendingCell, OfALineEnteredBeforeIsStored) {
    SaveWhileEditing({"p", "Right", "5", "Right", "2", "5", "Down", "Up", "4", "8"});
    EXPECT_EQ(StoredLines(), (std::vector<Row>{{"3", "2", "48"}}));
}

TEST_P(PendingCell, EditedWithTheCaretIsStored) {
    SaveWhileEditing({"p", "Right", "5", "Right", "2", "5", "Down", "Up", "F2", "End", "0"});
    EXPECT_EQ(StoredLines(), (std::vector<Row>{{"3", "2", "250"}}));
}

TEST_P(PendingCell, WithItsListOpenStoresTheNameShown) {
    SaveWhileEditing(
        {"p", "Right", "5", "Right", "2", "5", "Down", "Up", "Left", "Left", "l", "o"});
    EXPECT_EQ(StoredLines(), (std::vector<Row>{{"4", "2", "25"}}));
}

INSTANTIATE_TEST_SUITE_P(Saved, PendingCell,
                         testing::Values(Way{"ByCtrlS", ByCtrlS},
                                         Way{"ByEnterAndCtrlS", ByEnterAndCtrlS},
                                         Way{"ByEntersDownToTheButton", ByEntersDownToTheButton},
                                         Way{"ByClick", ByClick}),
                         [](const auto& way) { return std::string(way.param.name); });

} // namespace
} // namespace Quillane::Testing
