// The order in which opening fills the controls that it reads from the first row only.

#include "weighment/OpeningFixture.h"

#include <memory>

namespace Quillane {
namespace {

using namespace Testing;

class OpeningOrder : public OpeningTest {
protected:
    void SetUp() override {
        OpeningTest::SetUp();
        for (TextBox* box : {&screen->TxtArrivalId, &screen->TxtBuiltyNo, &screen->TxtDriverName})
            box->Change = [box, filled = filled, change = box->Change] {
                if (!box->Text().empty())
                    filled->push_back(box->Name());
                if (change)
                    change();
            };
        for (TDBCombo* list : {&screen->CboSeller, &screen->CboCommodity})
            list->RowChange = [list, filled = filled] { filled->push_back(list->Name()); };
    }

    std::shared_ptr<Lines> filled = std::make_shared<Lines>();
};

TEST_F(OpeningOrder, IsIdThenSellerThenCommodityThenDriver) {
    Open(1031);
    EXPECT_EQ(*filled,
              (Lines{"TxtArrivalId", "CboSeller", "CboCommodity", "TxtBuiltyNo", "TxtDriverName"}));
}

} // namespace
} // namespace Quillane
