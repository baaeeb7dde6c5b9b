#include "slip/CrpWeighmentOnPrinted.h"

#include "slip/SlipDesign.h"

namespace Quillane {

namespace {

/// The paper already has captions, boxes, lines and the heading of the company.
bool IsPreprinted(const ReportObject& object) {
    if (object.kind != ReportObjectKind::Field)
        return true;
    const ReportField& field = object.field;
    return field.source == ReportField::Source::ReportTitle ||
           (field.source == ReportField::Source::Parameter &&
            field.parameter <= SlipParameter::CompanyEmail);
}

} // namespace

CrpWeighmentOnPrinted::CrpWeighmentOnPrinted() : Report(SlipParameter::Count) {
    Sections = SlipSections();
    for (ReportSection& section : Sections) {
        std::erase_if(section.Objects, IsPreprinted);
        for (ReportObject& object : section.Objects) {
            object.HasBorder = false;
            object.BackColor = -1;
        }
    }
}

std::string CrpWeighmentOnPrinted::FileName() const {
    return SlipFileName(*this);
}

} // namespace Quillane
