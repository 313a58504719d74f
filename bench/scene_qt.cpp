// usage: scene_qt LIST PICTURE [COUNT]: draws bench/scene's list by Qt. A picture that ends in .pbm
// is of one bit, diffused. With a count, so many pictures are drawn on all processors, each with
// its number in it and in place of PICTURE's %d.
#include <QFile>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QThreadPool>
#include <atomic>

namespace {

void text(QPainter& painter, const QStringList& field) {
    QFont font("DejaVu Sans");
    font.setPixelSize(field[1].toInt());
    font.setBold(field[2] == "1");
    painter.setFont(font);
    painter.setPen(QColor(field[6]));
    double x = field[3].toDouble();
    const double width = QFontMetricsF(font).horizontalAdvance(field[7]);
    if (field[5] == "middle") x -= width / 2;
    if (field[5] == "end") x -= width;
    painter.drawText(QPointF(x, field[4].toDouble()), field[7]);
}

void shape(QPainter& painter, const QStringList& field) {
    const auto number = [&field](int i) { return field[i].toDouble(); };
    const QString kind = field[0];
    if (kind == "text") return text(painter, field);
    if (kind == "fill") {
        painter.fillRect(QRectF(number(1), number(2), number(3), number(4)), QColor(field[5]));
    } else if (kind == "line") {
        painter.setPen(QPen(QColor(field[6]), number(5)));
        painter.drawLine(QPointF(number(1), number(2)), QPointF(number(3), number(4)));
    } else if (kind == "image") {
        painter.drawImage(QPointF(number(1), number(2)), QImage(field[4]));
    } else {
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(field.last()));
        const double r = number(3);
        if (kind == "disc") painter.drawEllipse(QPointF(number(1), number(2)), r, r);
        const QPointF corners[] = {{number(1), number(2)}, {r, number(4)}};
        if (kind == "triangle") {
            painter.drawPolygon(QPolygonF({corners[0], corners[1], {number(5), number(6)}}));
        }
    }
}

bool draw(const QString& list, const QString& picture, const QString& number) {
    QFile file(list);
    if (!file.open(QFile::ReadOnly)) return false;
    const QStringList rows = QString::fromUtf8(file.readAll()).split('\n', Qt::SkipEmptyParts);
    const QStringList size = rows[0].split('\t');
    QImage image(size[1].toInt(), size[2].toInt(), QImage::Format_RGB32);
    QPainter painter(&image);
    for (int i = 1; i < rows.size(); ++i) shape(painter, rows[i].split('\t'));
    if (!number.isEmpty()) {
        text(painter, {"text", "12", "0", "400", "474", "middle", "#808080", number});
    }
    painter.end();
    if (picture.endsWith(".pbm")) {
        image = image.convertToFormat(QImage::Format_Mono, Qt::DiffuseDither);
    }
    return image.save(picture);
}

}  // namespace

int main(int argc, char** argv) {
    QGuiApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (argc == 3) return draw(arguments[1], arguments[2], {}) ? 0 : 1;
    if (argc != 4) return 2;
    std::atomic<bool> all_drawn{true};
    for (int i = 0; i < arguments[3].toInt(); ++i) {
        QThreadPool::globalInstance()->start([i, &arguments, &all_drawn] {
            QString picture = arguments[2];
            const QString number = QString::number(i);
            if (!draw(arguments[1], picture.replace("%d", number), number)) all_drawn = false;
        });
    }
    QThreadPool::globalInstance()->waitForDone();
    return all_drawn ? 0 : 1;
}
