#pragma once

#include "platform/forms/grids/SSOleDBGridView.h"

#include <QWidget>

namespace Quillane {

/// The line of captions above the rows. It does not react to the mouse.
class SSOleDBGrid::View::Header : public QWidget {
public:
    explicit Header(View& view) : QWidget(&view), view_(view) {}

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    View& view_;
};

} // namespace Quillane
