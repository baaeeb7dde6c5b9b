#include "slip/CrpCottonWeighment.h"

#include "slip/SlipDesign.h"

namespace Quillane {

CrpCottonWeighment::CrpCottonWeighment() : Report(SlipParameter::Count) {
    Sections = SlipSections();
}

std::string CrpCottonWeighment::FileName() const {
    return SlipFileName(*this);
}

} // namespace Quillane
