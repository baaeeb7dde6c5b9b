#pragma once

#include "platform/report/Report.h"

#include <memory>
#include <string>

namespace Quillane {

/// Fills a slip as the print button does.
inline void FillSlip(Report& slip, std::shared_ptr<Recordset> rows, double initialGross = 12540,
                     double net = 8100, std::string mounds = "202-20") {
    slip.ParameterFields(1).AddCurrentValue("QUILLANE FLOUR MILLS");
    slip.ParameterFields(2).AddCurrentValue("Plot 7, Industrial Estate, Sargodha Road, Faisalabad");
    slip.ParameterFields(3).AddCurrentValue("PhoneNo: 041-555 0182");
    slip.ParameterFields(4).AddCurrentValue("Email: gate@quillane.example");
    slip.ParameterFields(5).AddCurrentValue(std::move(mounds));
    slip.ParameterFields(6).AddCurrentValue(initialGross);
    slip.ParameterFields(7).AddCurrentValue(net);
    slip.Title = "Quillane Slip";
    slip.Database.SetDataSource(std::move(rows), 3, 1);
    slip.SelectPrinter("Dummy Driver", "Ding Dong", "LPT1");
    slip.PaperOrientation = 1;
}

} // namespace Quillane
