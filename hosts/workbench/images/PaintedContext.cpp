#include "workbench/images/PaintedContext.h"

#include <QImage>
#include <QPainter>
#include <QString>

namespace workbench {

namespace {

QColor ToQColor(const host::Colour& colour) {
    return {colour.red, colour.green, colour.blue, colour.alpha};
}

QRectF ToQRect(double left, double top, double right, double bottom) {
    return QRectF(QPointF(left, top), QPointF(right, bottom));
}

} // namespace

PaintedContext::PaintedContext(int width, int height, double scale)
    : image(std::make_unique<QImage>(static_cast<int>(width * scale), static_cast<int>(height * scale),
                                     QImage::Format_RGB32)),
      painter(std::make_unique<QPainter>()), scale(scale) {
    image->fill(Qt::white);
    painter->begin(image.get());
    SetOrigin(0, 0);
}

PaintedContext::~PaintedContext() {
    painter->end();
}

void PaintedContext::FillRectangle(double left, double top, double right, double bottom, const host::Colour& colour) {
    painter->fillRect(ToQRect(left, top, right, bottom), ToQColor(colour));
}

void PaintedContext::FrameRectangle(double left, double top, double right, double bottom, const host::Colour& colour) {
    FillRectangle(left, top, right + 1, top + 1, colour);
    FillRectangle(left, bottom, right + 1, bottom + 1, colour);
    FillRectangle(left, top, left + 1, bottom, colour);
    FillRectangle(right, top, right + 1, bottom, colour);
}

void PaintedContext::DrawImage(const host::NativeImage& picture, double left, double top) {
    QImage pixels(picture.GetWidth(), picture.GetHeight(), QImage::Format_ARGB32);
    for (int y = 0; y < picture.GetHeight(); ++y)
        for (int x = 0; x < picture.GetWidth(); ++x)
            pixels.setPixelColor(x, y, ToQColor(picture.GetPixel(x, y)));
    painter->drawImage(QPointF(left, top), pixels);
}

void PaintedContext::SetOrigin(double left, double top) {
    painter->resetTransform();
    painter->scale(scale, scale);
    painter->translate(left, top);
}

host::Colour PaintedContext::GetPixel(int x, int y) const {
    const QColor colour = image->pixelColor(x, y);
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue())};
}

bool PaintedContext::WritePicture(const std::string& path) const {
    return image->save(QString::fromStdString(path));
}

} // namespace workbench
