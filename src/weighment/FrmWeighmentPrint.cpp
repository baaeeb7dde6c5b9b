#include "weighment/FrmWeighment.h"

#include "data/CompanyProfile.h"
#include "data/Con.h"
#include "data/modCommon.h"
#include "platform/runtime/Failure.h"
#include "platform/runtime/Numbers.h"
#include "signin/UserLogin.h"
#include "slip/CrpCottonWeighment.h"
#include "slip/SlipFilling.h"
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
        FillSlip(*viewer_->Report, {.companyTitle = Capitals(CompanyProfile->CompanyTitle()),
                                    .companyAddress = CompanyProfile->CompanyAddress(),
                                    .companyPhone = CompanyProfile->CompanyPhone(),
                                    .companyEmail = CompanyProfile->CompanyEmail(),
                                    .mounds = TxtMoundKgs.Text(),
                                    .initialGrossWeight = Val(TxtInitialGrossWeight.Text()),
                                    .netWeight = Val(TxtNetWeight.Text()),
                                    .userName = UserLogin->UserName(),
                                    .rows = slipRows_});
        viewer_->ShowModal(this);
    } catch (const Failure&) {
        ShowError();
    }
}

} // namespace Quillane
