#include "platform/forms/grids/SSOleDBGridTrial.h"

#include <QImage>
#include <QPaintDevice>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>

namespace Quillane {
namespace {

/// Records the texts of a paint and their positions.
class TextTaker : public QPaintDevice, private QPaintEngine {
public:
    explicit TextTaker(QWidget& widget)
        : QPaintEngine(QPaintEngine::AllFeatures), size_(widget.size()) {
        widget.render(this);
    }
    ~TextTaker() override = default;

    struct Text {
        std::string text;
        QPointF place;
    };
    std::vector<Text> taken;

    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const Text& each : taken)
            texts.push_back(each.text);
        return texts;
    }

    QPaintEngine* paintEngine() const override { return const_cast<TextTaker*>(this); }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
            return size_.width();
        case PdmHeight:
            return size_.height();
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        case PdmDepth:
            return 32;
        default:
            return 96;
        }
    }

private:
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
    void drawPath(const QPainterPath&) override {}
    void drawTextItem(const QPointF& place, const QTextItem& item) override {
        taken.push_back({FromQt(item.text()), painter()->worldTransform().map(place)});
    }
    Type type() const override { return User; }

    QSize size_;
};

class SSOleDBGridPainting : public SSOleDBGridTest {
protected:
    std::vector<std::string> Painted() { return TextTaker(Viewport()).Texts(); }
    std::vector<std::string> Painted(const std::string& statement) {
        rows_ = Query(statement);
        grid.SetDataSource(rows_);
        Settle();
        return Painted();
    }
    QImage Image() { return Viewport().grab().toImage(); }
    QColor BaseOf(int line) {
        return Image().pixelColor(2, (line - Top()) * LineHeight() + LineHeight() / 2);
    }
    bool HasColour(int line, QColor wanted) {
        const QImage image = Image();
        const int top = (line - Top()) * LineHeight();
        for (int y = top; y < top + LineHeight() - 1; ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixelColor(x, y) == wanted)
                    return true;
        return false;
    }

    std::shared_ptr<Recordset> rows_;
};

using Texts = std::vector<std::string>;

TEST_F(SSOleDBGridPainting, ShowsTheValuesOfEachLineAndNoMoreThanAreInView) {
    EXPECT_EQ(Painted(Numbered(2)),
              (Texts{"1", "20/11/2026", "Party 1", "2", "20/11/2026", "Party 2"}));
    const Texts many = Painted(Numbered(100'000));
    EXPECT_LE(many.size(), static_cast<std::size_t>((LinesInView() + 1) * 3));
    EXPECT_EQ(many.front(), "1");
    grid.MoveLast();
    const Texts last = Painted();
    EXPECT_LE(last.size(), static_cast<std::size_t>((LinesInView() + 1) * 3));
    EXPECT_EQ(last.back(), "Party 100000");
}

TEST_F(SSOleDBGridPainting, ShowsItsCaptions) {
    TextTaker taker(View());
    EXPECT_EQ(taker.Texts(), (Texts{"No.", "Arrival Date", "Party Name"}));
}

TEST_F(SSOleDBGridPainting, FillsTheGridWithItsColumnsInTheProportionOfTheirWidths) {
    Painted(Numbered(1));
    const TextTaker taker(Viewport());
    ASSERT_EQ(taker.taken.size(), 3U);
    const double first = taker.taken[0].place.x();
    EXPECT_NEAR(taker.taken[1].place.x() - first, Viewport().width() / 6.0, 1);
    EXPECT_NEAR(taker.taken[2].place.x() - first, Viewport().width() / 2.0, 1);
    View().resize(400, 300);
    const TextTaker narrow(Viewport());
    EXPECT_NEAR(narrow.taken[2].place.x() - first, Viewport().width() / 2.0, 1);
}

struct ValueCase {
    const char* value;
    const char* format;
    const char* shown;
};

TEST_F(SSOleDBGridPainting, ShowsAValueByItsFormat) {
    const ValueCase cases[] = {
        {"'2026-11-20T00:00:00'", "dd/MM/yyyy", "20/11/2026"},
        {"'2026-02-05 14:30:00'", "dd/MM/yyyy", "05/02/2026"},
        {"'2026-11-20T00:00:00'", "", "2026-11-20T00:00:00"},
        {"'soon'", "dd/MM/yyyy", "soon"},
        {"'2026-13-40'", "dd/MM/yyyy", "2026-13-40"},
        {"42", "dd/MM/yyyy", "42"},
        {"Null", "dd/MM/yyyy", ""},
        {"Null", "", ""},
        {"''", "", ""},
        {"42", "", "42"},
        {"2.5", "", "2.5"},
        {"'Zahid & Sons'", "", "Zahid & Sons"},
        {"'چوہدری'", "", "چوہدری"},
        {"'a' || char(10) || 'b' || char(9) || 'c' || char(13) || char(27) || 'd'", "", "a b c  d"},
        {"'a' || char(156) || 'b' || char(8232) || 'c'", "", "a b c"},
    };
    for (const ValueCase& each : cases) {
        grid.Columns("Party").format = each.format;
        std::string shown;
        for (const std::string& part :
             Painted("Select " + std::string(each.value) + " As AccountName"))
            shown += part;
        EXPECT_EQ(shown, each.shown) << each.value;
    }
}

TEST_F(SSOleDBGridPainting, ElidesALongText) {
    const Texts texts = Painted("Select '" + std::string(100'000, 'W') + "' As AccountName");
    ASSERT_EQ(texts.size(), 1U);
    EXPECT_LT(texts.front().size(), 100U);
    EXPECT_TRUE(texts.front().ends_with("…"));
}

TEST_F(SSOleDBGridPainting, ShowsNothingForAFieldThatTheRowsDoNotHave) {
    grid.Columns("Day").dataField = "NoSuchField";
    EXPECT_EQ(Painted(Numbered(1)), (Texts{"1", "Party 1"}));
    grid.Columns("Day").dataField = "";
    EXPECT_EQ(Painted(), (Texts{"1", "Party 1"}));
    grid.Columns("Day").dataField = "accountNAME";
    EXPECT_EQ(Painted(), (Texts{"1", "Party 1", "Party 1"}));
}

TEST_F(SSOleDBGridPainting, ShowsNothingWithoutRowsOrForAClosedRecordset) {
    EXPECT_EQ(Painted(), Texts{});
    EXPECT_EQ(Painted(Numbered(0)), Texts{});
    Painted(Numbered(3));
    rows_->Close();
    EXPECT_EQ(Painted(), Texts{});
    rows_->Open(Numbered(1), database.connection);
    EXPECT_EQ(Painted(), (Texts{"1", "20/11/2026", "Party 1"}));
    grid.SetDataSource(nullptr);
    EXPECT_EQ(Painted(), Texts{});
}

TEST_F(SSOleDBGridPainting, DrawsTheCurrentLineHighlightedOrInItsOwnStyle) {
    const QColor highlight = View().palette().color(QPalette::Active, QPalette::Highlight);
    Painted(Numbered(5));
    EXPECT_EQ(BaseOf(0), highlight);
    EXPECT_EQ(BaseOf(1), QColor(Qt::white));
    Press(Qt::Key_Down);
    EXPECT_EQ(BaseOf(0), QColor(Qt::white));
    EXPECT_EQ(BaseOf(1), highlight);
    grid.SetActiveRowStyle(0x0000FF, 0xD0CFCE); // blue in the high byte
    EXPECT_EQ(BaseOf(1), QColor(0xCE, 0xCF, 0xD0));
    EXPECT_TRUE(HasColour(1, Qt::red));
    EXPECT_FALSE(HasColour(2, Qt::red));
    EXPECT_EQ(BaseOf(2), QColor(Qt::white));
    grid.SetActiveRowHighlighted();
    EXPECT_EQ(BaseOf(1), highlight);
    rows_->SetPosition(5);
    for (int line = 0; line < 5; ++line)
        EXPECT_EQ(BaseOf(line), QColor(Qt::white)) << line;
}

TEST_F(SSOleDBGridPainting, FollowsARowThatCodeMakesCurrent) {
    Painted(Numbered(5));
    const QColor highlight = BaseOf(0);
    rows_->Find("ArrivalId = 4");
    EXPECT_EQ(BaseOf(3), highlight);
    EXPECT_NE(BaseOf(0), highlight);
}

TEST_F(SSOleDBGridPainting, ShowsInItsFrameWhetherItHasTheFocus) {
    const auto edge = [this] { return View().grab().toImage().pixelColor(1, 40); };
    const QColor highlight = View().palette().color(QPalette::Active, QPalette::Highlight);
    EXPECT_EQ(edge(), highlight);
    screen.TxtFilter.SetFocus();
    EXPECT_NE(edge(), highlight);
}

TEST_F(SSOleDBGridPainting, GrowsItsLinesWithTheLetters) {
    Painted(Numbered(3));
    const int before = LineHeight();
    QFont large = screen.font();
    large.setPointSize(20);
    screen.setFont(large);
    Settle();
    ASSERT_GT(LineHeight(), before);
    const TextTaker taker(Viewport());
    EXPECT_NEAR(taker.taken[3].place.y() - taker.taken[0].place.y(), LineHeight(), 1);
}

} // namespace
} // namespace Quillane
