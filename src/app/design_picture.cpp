#include "app/design_picture.h"

#include <QImage>
#include <QPainter>

namespace zunbrix {

DesignPicture::DesignPicture(Source source, QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), source_(std::move(source))
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void DesignPicture::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    source_([&](const Surface& surface) {
        if (surface.width() < 1 || surface.height() < 1) {
            painter.fillRect(rect(), Qt::black);
            return;
        }
        const QImage picture(reinterpret_cast<const uchar*>(surface.data()), surface.width(), surface.height(),
                             surface.bytesPerLine(), QImage::Format_RGB32);
        painter.drawImage(0, 0, picture);
    });
}

} // namespace zunbrix
