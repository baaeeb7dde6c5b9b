#pragma once

#include <QTemporaryDir>

namespace Quillane {

/// Selects an off-screen display of 1920 by 1080 points, unless the environment names another
/// platform. Requires: there is no application yet.
class OffscreenDisplay {
public:
    OffscreenDisplay();

private:
    QTemporaryDir folder_;
};

} // namespace Quillane
