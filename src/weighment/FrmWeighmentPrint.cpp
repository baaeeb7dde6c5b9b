#include "weighment/FrmWeighment.h"

#include "data/CompanyProfile.h"
#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "slip/CrpCottonWeighment.h"
#include "slip/SlipStatement.h"

namespace Quillane {

void FrmWeighment::BtnPrint_Click() {
    try {
        LoadStatement = SlipStatement(ArrivalNo);
        if (slipRows_->State() == adStateOpen)
            slipRows_->Close();
        slipRows_->Open(LoadStatement, *Con, adOpenStatic, adLockReadOnly, adCmdUnspecified);
        if (!viewer_)
            viewer_ = std::make_unique<RptReportViewer>();
        viewer_->Report = std::make_unique<CrpCottonWeighment>();
        FillReport();
        viewer_->ShowModal(this);
    } catch (const Failure&) {
        ShowError();
    }
}

void FrmWeighment::FillReport() {
    Report& report = *viewer_->Report;
    report.ParameterFields(1).AddCurrentValue(Capitals(CompanyProfile->CompanyTitle()));
    report.ParameterFields(2).AddCurrentValue(CompanyProfile->CompanyAddress());
    report.ParameterFields(3).AddCurrentValue("PhoneNo: " + CompanyProfile->CompanyPhone());
    report.ParameterFields(4).AddCurrentValue("Email: " + CompanyProfile->CompanyEmail());
    report.ParameterFields(5).AddCurrentValue(TxtMoundKgs.Text());
    report.ParameterFields(6).AddCurrentValue(Val(TxtInitialGrossWeight.Text()));
    report.ParameterFields(7).AddCurrentValue(Val(TxtNetWeight.Text()));
    report.Title = "Quillane Slip";
    report.Database.SetDataSource(slipRows_, 3, 1);
    // Three fixed texts for the report engine; they name no device of the station.
    report.SelectPrinter("Dummy Driver", "Ding Dong", "LPT1");
    report.PaperOrientation = 1;
}

} // namespace Quillane
