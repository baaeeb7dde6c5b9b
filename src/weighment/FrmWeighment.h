#pragma once

#include "platform/ado/Recordset.h"
#include "platform/comm/MSComm.h"
#include "platform/forms/controls/Buttons.h"
#include "platform/forms/controls/DTPicker.h"
#include "platform/forms/controls/HintPanel.h"
#include "platform/forms/controls/TDBCombo.h"
#include "platform/forms/controls/TextBox.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Timer.h"
#include "platform/forms/grids/TDBGrid.h"
#include "platform/runtime/RowArray.h"
#include "scale/PortSession.h"
#include "slip/RptReportViewer.h"
#include "weighment/Hints.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

class QLayout;

namespace Quillane {

/// The working screen. It shows the scale reading and one arrival at a time, which can be entered,
/// saved, printed, opened again, changed and removed by keyboard.
///
/// Until it is saved, the weighment is only in the controls and members of this screen. The state
/// of the screen is whether `BtnSave` is enabled.
class FrmWeighment : public Screen {
public:
    FrmWeighment();
    ~FrmWeighment() override;

    // The controls. `ClearControls` uses the order of their declarations.
    TextBox TxtDeduction{*this, "TxtDeduction"};
    TDBGrid Grid{*this, "Grid"};
    TextBox TxtBuiltyNo{*this, "TxtBuiltyNo"};
    JeweledButton CmdGrossWeight{*this, "CmdGrossWeight", "Gross Weight"};
    TextBox TxtNetWeight{*this, "TxtNetWeight"};
    TextBox TxtMoundKgs{*this, "TxtMoundKgs"};
    TextBox TxtScaleDeductKg{*this, "TxtScaleDeductKg"};
    TextBox TxtVehicleNo{*this, "TxtVehicleNo"};
    TextBox TxtDriverName{*this, "TxtDriverName"};
    TextBox TxtKandaDeduction{*this, "TxtKandaDeduction"};
    CheckBox ChkManualWeight{*this, "ChkManualWeight", "Manual Weight"};
    Frame FrminVisible{*this, "FrminVisible", ""};
    TextBox TxtShortage{*this, "TxtShortage"};
    Quillane::Timer Timer{*this, "Timer", 200};
    TextBox TxtWeight{*this, "TxtWeight"};
    CheckBox ChkFinalized{*this, "ChkFinalized", "Finalized"};
    TextBox TxtHeapName{*this, "TxtHeapName"};
    TextBox TxtHeapNo{*this, "TxtHeapNo"};
    TextBox TxtBagsWeight{*this, "TxtBagsWeight"};
    TextBox TxtGrossWeight{*this, "TxtGrossWeight"};
    TextBox TxtTareWeight{*this, "TxtTareWeight"};
    TextBox TxtInitialGrossWeight{*this, "TxtInitialGrossWeight"};
    TextBox TxtArrivalId{*this, "TxtArrivalId"};
    JeweledButton BtnPrint{*this, "BtnPrint", "Print"};
    JeweledButton BtnSave{*this, "BtnSave", "Save"};
    JeweledButton BtnClear{*this, "BtnClear", "Clear"};
    JeweledButton BtnOpen{*this, "BtnOpen", "Open"};
    JeweledButton BtnRemove{*this, "BtnRemove", "Remove"};
    JeweledButton BtnClose{*this, "BtnClose", "Close"};
    DTPicker DtpArrivalDate{*this, "DtpArrivalDate"};
    JeweledButton CmdTareWeight{*this, "CmdTareWeight", "Tare Weight"};
    TDBCombo CboCommodity{*this, "CboCommodity"};
    TDBCombo CboSeller{*this, "CboSeller"};
    TDBCombo CboSellerType{*this, "CboSellerType"};
    TDBCombo CboBagClass{*this, "CboBagClass"};
    TDBCombo CboBagType{*this, "CboBagType"};
    MSComm CM{*this, "CM"};

    std::int32_t ArrivalNo = 0; ///< follows `TxtArrivalId` at every change of the box
    std::string ScreenMode;     ///< "NewMode" or "ChangeMode"; only the date's change reads it
    bool IsOpened = false;      ///< the screen holds a stored arrival
    RowArray BagRows;           ///< class name, type name, quantity
    Recordset PortSettingsRows; ///< the station's line settings, as of the last new weighment
    std::string LoadStatement;  ///< the statement last built for the slip

    // Modes (FrmWeighmentModes.cpp)
    /// 1 new, 2 changed, 3 stored; 5 exists, but is not used. Others do nothing.
    void SetButtonState(int mode);
    /// Blanks the screen in its control order. Failures are reported.
    void ClearControls();
    /// Clears the screen, sets the next free id and today's date and reopens the line. A failure is
    /// reported, and the remaining steps are skipped.
    void NewWeighment();
    void BtnClear_Click();
    void ChkFinalized_Click();
    void DtpArrivalDate_Change();

    // Weights (FrmWeighmentWeights.cpp)
    void ComputeGrossWeight();
    void ComputeNetWeight();
    void RefreshGrossEntry();
    void TxtInitialGrossWeight_Change();
    void TxtTareWeight_Change();
    void TxtGrossWeight_Change();
    void TxtNetWeight_Change();

    // The scale (FrmWeighmentScale.cpp)
    void OpenScalePort();
    void ReopenScalePort();
    void ReadLiveWeight();
    void ChkManualWeight_Click();
    void CmdGrossWeight_Click();
    void CmdTareWeight_Click();

    // Saving (FrmWeighmentValidate.cpp, FrmWeighmentSave.cpp)
    /// True if the screen can be saved; otherwise a box has given the reason.
    bool ValidateWeighment();
    /// Validates again, and writes the weighment in one transaction.
    void SaveWeighment();
    void BtnSave_Click();

    // Opening (FrmWeighmentOpen.cpp)
    /// Shows a stored arrival in place of the present contents; with id 0 the operator selects it.
    /// If it has no rows, only `ArrivalNo` changes. A failure is reported; the screen then has the
    /// fields that were filled before it.
    void LoadArrival(std::int16_t& id);
    void BtnOpen_Click();
    void TxtArrivalId_Change();
    void TxtArrivalId_Validate();

    // Removing, printing (FrmWeighmentRemove.cpp, FrmWeighmentPrint.cpp)
    void BtnRemove_Click();
    void BtnPrint_Click();

    // Loading and closing, and the seller's list (FrmWeighment.cpp)
    void BtnClose_Click();
    void CboSellerType_RowChange();

    /// What the panel in the lower right says now (FrmWeighmentHints.cpp).
    Hints CurrentHints() const;

protected:
    void Form_Load() override;
    void Form_Unload(bool& cancel) override;
    void Form_GotFocus() override;
    void Form_KeyDown(int& key, int shift) override;
    void Form_KeyPress(int& character) override;

private:
    // FrmWeighment.cpp
    void WireBoxes();
    void WireButtonsAndLists();

    // FrmWeighmentLayout.cpp
    void DesignControls();
    void NumberControls();
    void DesignBoxes();
    void DesignGrid();
    void HideControls();
    void DescribeControls();
    void LayOut();
    QLayout* ReadingRow();
    QLayout* ArrivalFields();
    QLayout* WeightFields();
    QLayout* ButtonRow();

    // FrmWeighmentKeys.cpp
    void HandleKeyDown(int& key, int shift);
    void HandleShortcut(int& key, int shift);
    void SearchParty(int& key);
    std::array<TextBox*, 6> NumberBoxes();

    // FrmWeighmentHints.cpp
    void RememberKey(int key, int shift);
    void RememberBox(const TextBox& box);
    HintState StateForHints() const;
    std::vector<HintPanel::Line> HintLines() const;
    void AddBagLines(HintState& state) const;
    std::string TextOf(const VisualControl* control) const;

    // FrmWeighmentModes.cpp
    void EnterChangeMode();
    void ApplyWeighRule();
    void BlankControls();
    void EmptyBagRows();
    /// Starts a new weighment with the focus on the date.
    void BeginNextWeighment();
    /// False for all controls while they are blanked.
    bool IsActive(const VisualControl& control) const;

    // FrmWeighmentWeights.cpp
    void BlankLoneZero(TextBox& box);

    // FrmWeighmentValidate.cpp
    bool HasArrivalId();
    bool HasParty();
    bool HasCommodity();
    bool HasVehicle();
    bool HasGrossWeight();
    bool HasBagLines();
    bool IdIsFree();
    bool MayModify();
    bool IsPosted();
    void TakeNewId();

    // FrmWeighmentSave.cpp
    void WriteHeader();
    bool IsFreeOfDependents();
    void ReplaceBody();
    void WriteBagLine(bool first);
    void FinishSave();

    // FrmWeighmentOpen.cpp
    std::int32_t AskForArrival();
    void ShowRows(Recordset& rows);
    void ShowHeader(const Recordset& rows);
    void ShowBagLine(const Recordset& rows, int line);

    bool blanking_ = false; ///< `BlankControls` is running
    PressedKey pressedKey_;
    std::int32_t proposedNo_ = 0; ///< the id that was last taken for a new load
    std::string savedId_;         ///< of the load saved last
    HintPanel hints_;
    PortSession session_{*this, CM, Timer, TxtWeight, PortSettingsRows};
    Recordset headerRows_;
    Recordset oldBodyRows_;
    Recordset bodyRows_;
    Recordset sellerRows_;
    Recordset bagTypeRows_;
    Recordset bagClassRows_;
    std::shared_ptr<RowArray> sellers_ = std::make_shared<RowArray>();
    std::shared_ptr<RowArray> bagTypes_ = std::make_shared<RowArray>();
    std::shared_ptr<RowArray> bagClasses_ = std::make_shared<RowArray>();
    std::shared_ptr<Recordset> slipRows_ = std::make_shared<Recordset>();
    std::unique_ptr<RptReportViewer> viewer_;
};

} // namespace Quillane
