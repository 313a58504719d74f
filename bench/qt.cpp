#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QStaticText>
#include <map>

#include "player.h"

namespace bench {
namespace {

struct Qt {
    QImage image;
    QPainter painter;
    QColor color;
    std::map<const Op*, QStaticText> texts;
    std::map<const Op*, int> ascents;
    std::map<std::pair<int, int>, QFont> fonts;  // by size and weight
    enum class Mode { none, outline, area } mode = Mode::none;

    Qt(int width, int height) : image(width, height, QImage::Format_RGB32), painter(&image) {
        QFont font;
        font.setPixelSize(8);
        font.setStyleStrategy(QFont::NoAntialias);
        painter.setFont(font);
    }

    static void create(int width, int height) {
        QImage(width, height, QImage::Format_RGB32).fill(0xFF000000u);
    }

    void ink(orvel_color c) {
        color = QColor(c.r, c.g, c.b);
        mode = Mode::none;
    }
    void clear(orvel_color c) { image.fill(QColor(c.r, c.g, c.b).rgb()); }
    unsigned at(int x, int y) const {
        return reinterpret_cast<const QRgb*>(image.constScanLine(y))[x];
    }
    void outlines() {
        if (mode == Mode::outline) return;
        mode = Mode::outline;
        painter.setPen(color);
        painter.setBrush(::Qt::NoBrush);
    }
    void areas() {
        if (mode == Mode::area) return;
        mode = Mode::area;
        painter.setPen(::Qt::NoPen);
        painter.setBrush(color);
    }

    void pixel(const Op& op) { image.setPixel(op.x0, op.y0, color.rgb()); }
    void fill(const Op& op) { painter.fillRect(op.x0, op.y0, op.x1, op.y1, color); }
    void line(const Op& op) {
        outlines();
        painter.drawLine(op.x0, op.y0, op.x1, op.y1);
    }
    void rect(const Op& op) {
        outlines();
        painter.drawRect(op.x0, op.y0, op.x1 - 1, op.y1 - 1);
    }
    void circle(const Op& op) {
        outlines();
        painter.drawEllipse(op.x0 - op.x1, op.y0 - op.x1, 2 * op.x1, 2 * op.x1);
    }
    void disc(const Op& op) {
        areas();
        painter.drawEllipse(op.x0 - op.x1, op.y0 - op.x1, 2 * op.x1 + 1, 2 * op.x1 + 1);
    }
    void triangle(const Op& op) {
        areas();
        const QPoint points[] = {{op.x0, op.y0}, {op.x1, op.y1}, {op.x2, op.y2}};
        painter.drawConvexPolygon(points, 3);
    }
    void text(const Op& op) {
        outlines();
        QStaticText& text = texts[&op];
        if (text.text().isEmpty()) {
            text.setText(QString::fromLatin1(op.text.c_str()));
            text.setTextFormat(::Qt::PlainText);
            text.setPerformanceHint(QStaticText::AggressiveCaching);
        }
        painter.drawStaticText(op.x0, op.y0, text);
    }
    void words(const Op& op) {
        outlines();
        QStaticText& text = texts[&op];
        QFont& font = fonts[{op.x1, op.y1}];
        if (text.text().isEmpty()) {
            font = QFont("DejaVu Sans");
            font.setPixelSize(op.x1);
            font.setBold(op.y1 == 1);
            font.setStyleStrategy(QFont::NoAntialias);
            text.setText(QString::fromUtf8(op.text.c_str()));
            text.setTextFormat(::Qt::PlainText);
            text.setPerformanceHint(QStaticText::AggressiveCaching);
            text.prepare({}, font);
            ascents[&op] = QFontMetrics(font).ascent();
        }
        painter.setFont(font);
        painter.drawStaticText(op.x0, op.y0 - ascents[&op], text);
    }

    bool save(const char* path, int depth) { return depth == 24 && image.save(path, "BMP"); }
    void bitmap(const Workload& work) {
        painter.drawImage(work.x, work.y, QImage(QString::fromStdString(work.file), "BMP"));
    }
};

}  // namespace

Implementation qt() {
    static int count = 1;
    static char name[] = "bench";
    static char* arguments[] = {name, nullptr};
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication application(count, arguments);  // fonts need it
    return implementation<Qt>(std::string("Qt ") + qVersion());
}

}  // namespace bench
