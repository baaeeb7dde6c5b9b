#include "weighment/FrmWeighment.h"

#include "platform/forms/core/KeyCodes.h"
#include "platform/forms/core/Text.h"
#include "platform/runtime/Numbers.h"
#include "signin/UserLogin.h"

namespace Quillane {

namespace {

bool IsModifier(int key) {
    return key == Key::Shift || key == Key::Control || key == Key::Alt;
}

std::string Listed(const std::vector<std::string>& keys) {
    const QString noBreak(QChar::Nbsp);
    QStringList shown;
    for (const std::string& key : keys)
        shown.append(ToQt(key).replace(' ', noBreak));
    return FromQt(shown.join(QStringLiteral("   ")));
}

} // namespace

std::string FrmWeighment::TextOf(const VisualControl* control) const {
    if (const auto* box = dynamic_cast<const TextBox*>(control))
        return box->Text();
    const auto* list = dynamic_cast<const TDBCombo*>(control);
    return list ? list->Text() : std::string();
}

void FrmWeighment::RememberKey(int key, int shift) {
    if (IsModifier(key))
        return;
    const VisualControl* active = ActiveControl();
    const auto* list = dynamic_cast<const TDBCombo*>(active);
    pressedKey_ = {.code = key,
                   .shift = shift,
                   .control = ActiveControlName(),
                   .text = TextOf(active),
                   .drops = (list && list->IsDroppedDown()) || Grid.IsEditing(),
                   .readingAboveZero = Val(TxtWeight.Text()) > 0,
                   .saveEnabled = BtnSave.Enabled(),
                   .openEnabled = BtnOpen.Enabled(),
                   .removeEnabled = BtnRemove.Enabled(),
                   .printEnabled = BtnPrint.Enabled()};
    if (const auto* box = dynamic_cast<const TextBox*>(active))
        RememberBox(*box);
    else if (active == &Grid)
        pressedKey_.number = Grid.TakesNumbers();
}

void FrmWeighment::RememberBox(const TextBox& box) {
    pressedKey_.locked = box.Locked();
    pressedKey_.limit = box.MaxLength();
    pressedKey_.full = box.MaxLength() > 0 && ToQt(box.Text()).size() >= box.MaxLength();
    pressedKey_.number = box.Admits != nullptr;
}

HintState FrmWeighment::StateForHints() const {
    HintState state{.active = ActiveControlName(),
                    .arrivalId = TxtArrivalId.Text(),
                    .arrivalNo = ArrivalNo,
                    .proposedNo = proposedNo_,
                    .savedId = savedId_,
                    .seller = CboSeller.Text(),
                    .sellerType = CboSellerType.Text(),
                    .commodity = CboCommodity.Text(),
                    .sellerListed = CboSeller.Bookmark().has_value(),
                    .commodityListed = CboCommodity.Bookmark().has_value(),
                    .vehicle = TxtVehicleNo.Text(),
                    .tare = TxtTareWeight.Text(),
                    .gross = TxtGrossWeight.Text(),
                    .net = TxtNetWeight.Text(),
                    .refusedCell = Grid.RefusedText(),
                    .activeText = TextOf(ActiveControl()),
                    .date = DtpArrivalDate.Value(),
                    .today = Today(),
                    .isOpened = IsOpened,
                    .manualWeight = ChkManualWeight.Value() == 1,
                    .fullRights = ChkManualWeight.Visible(),
                    .saveEnabled = BtnSave.Enabled(),
                    .openEnabled = BtnOpen.Enabled(),
                    .removeEnabled = BtnRemove.Enabled(),
                    .printEnabled = BtnPrint.Enabled(),
                    .key = pressedKey_};
    AddBagLines(state);
    return state;
}

void FrmWeighment::AddBagLines(HintState& state) const {
    state.bagLines = BagRows.RowCount();
    for (int line = 0; line < state.bagLines; ++line) {
        const double bags = Val(BagRows.Get(line, 2));
        state.bags += bags;
        const bool whole =
            !BagRows.Get(line, 0).empty() && !BagRows.Get(line, 1).empty() && bags != 0;
        if (!whole && state.incompleteLine == 0)
            state.incompleteLine = line + 1;
    }
}

Hints FrmWeighment::CurrentHints() const {
    return HintsFor(StateForHints());
}

std::vector<HintPanel::Line> FrmWeighment::HintLines() const {
    const Hints hints = CurrentHints();
    std::vector<HintPanel::Line> lines;
    if (!hints.answer.empty())
        lines.push_back({HintPanel::Kind::Answer, hints.answer});
    for (const std::string& note : hints.notes)
        lines.push_back({HintPanel::Kind::Note, note});
    if (!hints.missing.empty())
        lines.push_back({HintPanel::Kind::Plain, hints.missing});
    lines.push_back({HintPanel::Kind::Keys, Listed(hints.keys)});
    return lines;
}

} // namespace Quillane
