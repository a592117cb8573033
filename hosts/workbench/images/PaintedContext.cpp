#include "workbench/images/PaintedContext.h"

#include <QDir>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QString>
#include <QTemporaryDir>
#include <QTextOption>

#include <cstdio>

namespace workbench {

namespace {

QColor ToQColor(const host::Colour& colour) {
    return {colour.red, colour.green, colour.blue, colour.alpha};
}

QRectF ToQRect(double left, double top, double right, double bottom) {
    return QRectF(QPointF(left, top), QPointF(right, bottom));
}

constexpr double DegreesPerRadian = 180.0 / 3.14159265358979323846;
constexpr int FontPixels = 11; ///< of the dialogs' small font
constexpr double SlantedHeight = 200.0;

/// Fonts need an application object, which lives as long as the program.
void EnsureFonts() {
    if (QCoreApplication::instance() != nullptr) return;
    qputenv("QT_QPA_PLATFORM", "offscreen"); // pictures need no screen, and nobody to be told that there is none
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtCriticalMsg || type == QtFatalMsg) std::fprintf(stderr, "%s\n", text.toUtf8().constData());
    });
    // What the application keeps while it runs: without a folder it makes one by itself and leaves it behind.
    static QTemporaryDir runtime(QDir::tempPath() + "/kelvarnix-run-XXXXXX");
    if (runtime.isValid()) qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    static int argumentCount = 1;
    static char name[] = "kelvarnix";
    static char* arguments[] = {name, nullptr};
    static QGuiApplication application(argumentCount, arguments);
}

QFont MakeFont() {
    EnsureFonts();
    QFont font("sans-serif");
    font.setPixelSize(FontPixels);
    return font;
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

void PaintedContext::FillSector(double centreX, double centreY, double radius, double startAngle, double sweep,
                                const host::Colour& colour) {
    const QRectF square = ToQRect(centreX - radius, centreY - radius, centreX + radius, centreY + radius);
    QPainterPath path(QPointF(centreX, centreY));
    // Degrees that run counter-clockwise, as they do on paper.
    path.arcTo(square, -startAngle * DegreesPerRadian, -sweep * DegreesPerRadian);
    path.closeSubpath();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(path, ToQColor(colour));
    painter->setRenderHint(QPainter::Antialiasing, false);
}

void PaintedContext::DrawBoxedText(const host::BoxedText& text, const host::Colour& colour) {
    painter->setFont(MakeFont());
    painter->setPen(ToQColor(colour));
    painter->drawText(ToQRect(text.left, text.top, text.right, text.bottom), Qt::AlignCenter | Qt::TextDontClip,
                      QString::fromStdString(text.text));
}

void PaintedContext::DrawSlantedText(const host::SlantedText& text, const host::Colour& colour) {
    painter->save();
    painter->translate(text.x, text.y);
    painter->rotate(text.angle * DegreesPerRadian);
    painter->setFont(MakeFont());
    painter->setPen(ToQColor(colour));
    // A pixel more, so that rounding does not wrap a text of just the allowed width.
    QTextOption wrapping;
    wrapping.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    painter->drawText(QRectF(0, 0, text.maximumWidth + 1, SlantedHeight), QString::fromStdString(text.text), wrapping);
    painter->restore();
}

void PaintedContext::SetOrigin(double left, double top) {
    painter->resetTransform();
    painter->scale(scale, scale);
    painter->translate(left, top);
}

void PaintedContext::SetPlacement(double left, double top, double angle, double xRatio, double yRatio) {
    SetOrigin(left, top);
    painter->rotate(-angle * DegreesPerRadian);
    painter->scale(xRatio, yRatio);
}

host::Colour PaintedContext::GetPixel(int x, int y) const {
    const QColor colour = image->pixelColor(x, y);
    return {static_cast<std::uint8_t>(colour.red()), static_cast<std::uint8_t>(colour.green()),
            static_cast<std::uint8_t>(colour.blue())};
}

Outcome PaintedContext::WritePicture(const std::string& path) const {
    if (image->save(QString::fromStdString(path))) return Outcome::Done();
    return Failure::Output(path + ": the picture cannot be written; check the folder, its rights and the disk");
}

PaintedFont::PaintedFont() {
    EnsureFonts();
}

double PaintedFont::MeasureWidth(const std::string& text) {
    return QFontMetricsF(MakeFont()).horizontalAdvance(QString::fromStdString(text));
}

double PaintedFont::ReadCapitalHeight() {
    return QFontMetricsF(MakeFont()).capHeight();
}

} // namespace workbench
