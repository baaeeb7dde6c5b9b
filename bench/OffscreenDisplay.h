#pragma once

#include <QTemporaryDir>

namespace Quillane {

/// An off-screen display of 1920 by 1080 points, unless the environment names another platform. It
/// must stand before the application does.
class OffscreenDisplay {
public:
    OffscreenDisplay();

private:
    QTemporaryDir folder_;
};

} // namespace Quillane
