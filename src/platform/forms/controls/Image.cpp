#include "platform/forms/controls/Buttons.h"
#include "platform/forms/core/EventBoundary.h"
#include "platform/forms/core/Screen.h"
#include "platform/forms/core/Text.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>

namespace Quillane {

class Image::Picture : public QLabel {
public:
    Picture(QWidget* parent, const std::function<void()>& click) : QLabel(parent), click_(click) {
        setCursor(Qt::PointingHandCursor);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        event->setAccepted(event->button() == Qt::LeftButton);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
            RunEvent([this] {
                if (click_)
                    click_();
            });
        }
    }

private:
    const std::function<void()>& click_;
};

Image::Image(Screen& screen, std::string name)
    : VisualControl(screen, std::move(name), "Image"),
      picture_(std::make_unique<Picture>(&screen, Click)) {}

Image::~Image() = default;

void Image::SetPicture(std::string_view resourcePath, int width, int height) {
    QPixmap pixmap(ToQt(resourcePath));
    const double density = picture_->devicePixelRatioF();
    pixmap = pixmap.scaled(QSize(width, height) * density, Qt::KeepAspectRatio,
                           Qt::SmoothTransformation);
    pixmap.setDevicePixelRatio(density);
    picture_->setPixmap(pixmap);
    picture_->setFixedSize(width, height);
    picture_->setAlignment(Qt::AlignCenter);
}

QWidget& Image::Widget() {
    return *picture_;
}

} // namespace Quillane
