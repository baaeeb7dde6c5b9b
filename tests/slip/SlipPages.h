#pragma once

#include "platform/report/ReportLayout.h"
#include "slip/CrpCottonWeighment.h"
#include "slip/SlipDatabase.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <map>
#include <string>
#include <vector>

/// The laid-out pages of a slip and functions that find their texts.
namespace Quillane::Testing {

inline QStringList TextsOf(const ReportPage& page) {
    QStringList texts;
    for (const PlacedObject& placed : page.objects) {
        if (placed.text)
            texts.append(placed.text->Text());
    }
    return texts;
}

/// The object with this text; null if the page has none.
inline const PlacedObject* ObjectOfText(const ReportPage& page, const QString& text) {
    for (const PlacedObject& placed : page.objects) {
        if (placed.text && placed.text->Text() == text)
            return &placed;
    }
    return nullptr;
}

/// The texts to the right of a caption, in the same row and box, from left to right: value and
/// unit.
inline QStringList RightOf(const ReportPage& page, const QString& caption) {
    const PlacedObject* found = ObjectOfText(page, caption);
    if (!found)
        return {"no " + caption};
    std::map<double, QString> texts;
    for (const PlacedObject& placed : page.objects) {
        const double distance = placed.bounds.left() - found->bounds.left();
        if (placed.text && placed.bounds.top() == found->bounds.top() && distance > 0 &&
            distance < 4700)
            texts.emplace(distance, placed.text->Text());
    }
    QStringList inOrder;
    for (const auto& [distance, text] : texts)
        inOrder.append(text);
    return inOrder;
}

inline std::string ValueOf(const ReportPage& page, const QString& caption) {
    const QStringList texts = RightOf(page, caption);
    return texts.empty() ? std::string() : texts.first().toStdString();
}

class SlipPagesTest : public testing::Test {
protected:
    void Fill(int arrival, double initialGross = 12437, double net = 8100) {
        SlipContent content = SampleContent(database_.RowsOf(arrival));
        content.initialGrossWeight = initialGross;
        content.netWeight = net;
        FillSlip(slip_, content);
    }
    std::vector<ReportPage> Pages(int arrival, double initialGross = 12437, double net = 8100) {
        Fill(arrival, initialGross, net);
        return LayOutReport(slip_);
    }

    SlipDatabase database_;
    CrpCottonWeighment slip_;
};

} // namespace Quillane::Testing
