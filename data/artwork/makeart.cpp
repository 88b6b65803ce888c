// makeart: draws Skelda's pictures at build time, so that no binary artwork is kept in the tree.
//
//   makeart <images folder> <artwork folder> [icon size...]
//
// Into the images folder (the Images\ folder that Skelda reads under its current directory):
// METEO2.BMP, the common picture of an airport that has none of its own, and one bitmap for a few
// airports of the delivered table, named after their station codes.
// Into the artwork folder, for the artwork library to compile in: the nine 16 by 16 weather
// symbols of the day chart, symbols/<KEY>.png, the start-up picture of the tray form,
// app/splash.png (324 by 537, 24 bits), the icon of the application, app/skelda.png, and the
// background of the monthly plot, statistics/plot.png.
// For each icon size given, the same icon drawn at that size for the desktop's icon theme,
// icons/hicolor/<size>x<size>/apps/skelda.png, drawn rather than scaled so that small sizes stay sharp.
//
// Everything is drawn with QPainter from plain shapes; the output depends on nothing but the code
// and the system's sans-serif font.
#include <QDir>
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <numbers>
#include <vector>

namespace {

constexpr double Pi = std::numbers::pi;

// ---------------------------------------------------------------------------------------------
// Shared shapes

// A cumulus fitted in a box of width w from (x, y); it is about 0.6 w high.
QPainterPath Cloud(double x, double y, double w) {
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addEllipse(QPointF(x + 0.30 * w, y + 0.40 * w), 0.20 * w, 0.20 * w);
    path.addEllipse(QPointF(x + 0.55 * w, y + 0.30 * w), 0.26 * w, 0.26 * w);
    path.addEllipse(QPointF(x + 0.79 * w, y + 0.44 * w), 0.16 * w, 0.16 * w);
    path.addRoundedRect(QRectF(x + 0.06 * w, y + 0.36 * w, 0.90 * w, 0.24 * w), 0.12 * w, 0.12 * w);
    return path.simplified();
}

void PaintCloud(QPainter& p, const QPainterPath& cloud, const QColor& top, const QColor& bottom, const QColor& edge,
                double edgeWidth) {
    const QRectF box = cloud.boundingRect();
    QLinearGradient fill(box.topLeft(), box.bottomLeft());
    fill.setColorAt(0, top);
    fill.setColorAt(1, bottom);
    p.setBrush(fill);
    if (edgeWidth > 0)
        p.setPen(QPen(edge, edgeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    else
        p.setPen(Qt::NoPen);
    p.drawPath(cloud);
}

// A sun: a disc with rays from inner to outer radius.
void PaintSun(QPainter& p, QPointF c, double r, double rayFrom, double rayTo, double rayWidth, int rays = 8,
              double turn = 0) {
    p.setPen(QPen(QColor(245, 166, 0), rayWidth, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < rays; ++i) {
        const double a = turn + 2 * Pi * i / rays;
        p.drawLine(QPointF(c.x() + rayFrom * std::cos(a), c.y() + rayFrom * std::sin(a)),
                   QPointF(c.x() + rayTo * std::cos(a), c.y() + rayTo * std::sin(a)));
    }
    QRadialGradient disc(c - QPointF(r * 0.35, r * 0.35), r * 1.6);
    disc.setColorAt(0, QColor(255, 240, 120));
    disc.setColorAt(1, QColor(247, 170, 0));
    p.setBrush(disc);
    p.setPen(QPen(QColor(214, 130, 0), std::max(0.7, r / 5)));
    p.drawEllipse(c, r, r);
}

void PaintBolt(QPainter& p, const std::vector<QPointF>& points, double edge) {
    QPolygonF bolt(QList<QPointF>(points.begin(), points.end()));
    p.setBrush(QColor(255, 214, 30));
    p.setPen(QPen(QColor(176, 124, 0), edge, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPolygon(bolt);
}

void PaintDrops(QPainter& p, const std::vector<QLineF>& drops, const QColor& colour, double width) {
    p.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
    for (const QLineF& d : drops) p.drawLine(d);
}

// A six-armed snow flake.
void PaintFlake(QPainter& p, QPointF c, double r, const QColor& colour, double width) {
    p.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
    for (int i = 0; i < 3; ++i) {
        const double a = Pi / 2 + i * Pi / 3;
        const QPointF d(r * std::cos(a), r * std::sin(a));
        p.drawLine(c - d, c + d);
    }
}

// A wind sock on its mast. The mast stands at foot, the sock flies towards dir (+1 right,
// -1 left) from the top of the mast; length and mouth are the sock's size.
void PaintWindSock(QPainter& p, QPointF foot, double mastHeight, double length, double mouth, int dir, double droop) {
    const QPointF top(foot.x(), foot.y() - mastHeight);
    const double mast = std::max(1.5, mouth / 9);
    p.setPen(QPen(QColor(70, 74, 82), mast, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(foot, top + QPointF(0, -mast));

    // Five bands, red and white, narrowing to the tail.
    const int bands = 5;
    const double tail = mouth * 0.45;
    auto half = [&](double t) { return (mouth + (tail - mouth) * t) / 2; };
    auto centre = [&](double t) {
        return QPointF(top.x() + dir * (mast + length * t), top.y() + mouth / 2 + droop * t * t);
    };
    for (int i = 0; i < bands; ++i) {
        const double t0 = double(i) / bands, t1 = double(i + 1) / bands;
        QPolygonF band;
        band << centre(t0) + QPointF(0, -half(t0)) << centre(t1) + QPointF(0, -half(t1))
             << centre(t1) + QPointF(0, half(t1)) << centre(t0) + QPointF(0, half(t0));
        p.setPen(Qt::NoPen);
        p.setBrush(i % 2 == 0 ? QColor(235, 72, 30) : QColor(250, 250, 246));
        p.drawPolygon(band);
    }
    QPolygonF outline;
    outline << centre(0) + QPointF(0, -half(0)) << centre(1) + QPointF(0, -half(1)) << centre(1) + QPointF(0, half(1))
            << centre(0) + QPointF(0, half(0));
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(120, 40, 20), std::max(0.6, mouth / 22), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.drawPolygon(outline);
    // The hoop that holds the mouth open.
    p.setPen(QPen(QColor(70, 74, 82), std::max(1.0, mouth / 12), Qt::SolidLine, Qt::RoundCap));
    p.drawLine(centre(0) + QPointF(0, -half(0)), centre(0) + QPointF(0, half(0)));
}

QFont Font(double pixels, int weight = QFont::Bold, bool italic = false) {
    QFont f(QStringLiteral("DejaVu Sans"));
    f.setStyleHint(QFont::SansSerif);
    f.setPixelSize(int(std::lround(pixels)));
    f.setWeight(QFont::Weight(weight));
    f.setItalic(italic);
    return f;
}

// Text with a soft dark shadow, so that it reads on sky and clouds alike.
void PaintLettering(QPainter& p, QPointF at, const QString& text, const QFont& font, const QColor& colour,
                    double shadow) {
    QPainterPath path;
    path.addText(at, font, text);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 20, 50, 110));
    p.drawPath(path.translated(shadow, shadow));
    p.setBrush(colour);
    p.drawPath(path);
}

// ---------------------------------------------------------------------------------------------
// The weather symbols of the day chart, 16 by 16, transparent around the drawing

QImage NewSymbol() {
    QImage image(16, 16, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

const QColor CloudEdge(96, 112, 130);

void LightCloud(QPainter& p, double x, double y, double w) {
    PaintCloud(p, Cloud(x, y, w), QColor(255, 255, 255), QColor(208, 218, 230), CloudEdge, 0.9);
}

void GreyCloud(QPainter& p, double x, double y, double w) {
    PaintCloud(p, Cloud(x, y, w), QColor(226, 232, 239), QColor(164, 177, 192), QColor(84, 98, 116), 0.9);
}

void DarkCloud(QPainter& p, double x, double y, double w) {
    PaintCloud(p, Cloud(x, y, w), QColor(150, 160, 174), QColor(92, 102, 118), QColor(50, 58, 70), 0.9);
}

const QColor RainBlue(30, 112, 220);

QImage SymbolSun() {
    QImage image = NewSymbol();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    PaintSun(p, QPointF(8, 8), 3.5, 5.2, 7.2, 1.4, 8, Pi / 8);
    return image;
}

QImage SymbolSunCloud() {
    QImage image = NewSymbol();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    PaintSun(p, QPointF(5.5, 5.5), 2.8, 4.0, 5.4, 1.2, 8, Pi / 8);
    LightCloud(p, 3.2, 6.0, 12.6);
    return image;
}

QImage SymbolCloud() {
    QImage image = NewSymbol();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    GreyCloud(p, 0.6, 3.0, 14.8);
    return image;
}

QImage SymbolRain() {
    QImage image = NewSymbol();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    GreyCloud(p, 0.8, 0.2, 14.4);
    PaintDrops(p, {QLineF(5, 10.8, 4, 14.2), QLineF(8.5, 10.8, 7.5, 14.2), QLineF(12, 10.8, 11, 14.2)}, RainBlue, 1.4);
    return image;
}

QImage SymbolRainBig() {
    QImage image = NewSymbol();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    DarkCloud(p, 0.8, 0.0, 14.4);
    PaintDrops(p,
               {QLineF(3.6, 10.6, 2.2, 15), QLineF(6.6, 10.6, 5.2, 15), QLineF(9.6, 10.6, 8.2, 15),
                QLineF(12.6, 10.6, 11.2, 15)},
               QColor(18, 84, 190), 1.6);
    return image;
}

QImage SymbolStorm() {
    QImage image = NewSymbol();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    DarkCloud(p, 0.8, 0.0, 14.4);
    PaintBolt(p,
              {QPointF(9.2, 6.5), QPointF(5.2, 11.2), QPointF(7.8, 11.2), QPointF(6.2, 15.6), QPointF(11.4, 9.6),
               QPointF(8.8, 9.6), QPointF(10.8, 6.5)},
              0.7);
    return image;
}

QImage SymbolRainStorm() {
    QImage image = NewSymbol();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    DarkCloud(p, 0.8, 0.0, 14.4);
    PaintDrops(p, {QLineF(3.8, 10.6, 2.6, 14.2), QLineF(13.2, 10.6, 12.0, 14.2)}, RainBlue, 1.4);
    PaintBolt(p,
              {QPointF(9.0, 6.8), QPointF(5.8, 11.0), QPointF(7.9, 11.0), QPointF(6.6, 15.4), QPointF(10.8, 9.8),
               QPointF(8.7, 9.8), QPointF(10.4, 6.8)},
              0.7);
    return image;
}

QImage SymbolFog() {
    QImage image = NewSymbol();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    const QColor grey(120, 134, 150);
    p.setPen(QPen(grey, 2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(4, 3), QPointF(14, 3));
    p.drawLine(QPointF(2, 6), QPointF(11, 6));
    p.drawLine(QPointF(5, 9), QPointF(14, 9));
    p.drawLine(QPointF(2, 12), QPointF(12, 12));
    p.setPen(QPen(grey.lighter(125), 2, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(6, 15), QPointF(13, 15));
    return image;
}

QImage SymbolSnow() {
    QImage image = NewSymbol();
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    GreyCloud(p, 0.8, 0.0, 14.4);
    const QColor ice(40, 120, 210);
    PaintFlake(p, QPointF(4.6, 12.8), 2.4, ice, 1.0);
    PaintFlake(p, QPointF(11.2, 12.8), 2.4, ice, 1.0);
    return image;
}

// ---------------------------------------------------------------------------------------------
// Airport pictures and the common picture, 150 by 100, 24 bits

constexpr int PictureWidth = 150;
constexpr int PictureHeight = 100;

struct Scene {
    QString code;  // lettered top left, "" for none
    QString city;  // lettered under the code
    QColor skyTop, skyLow;
    double horizon = 64;  // y of the horizon
    bool mountains = false;
    bool sea = false;  // water along the horizon, left of seaUntil
    double seaUntil = 150;
    bool skyline = false;  // a city on the horizon
    bool sun = false;
    QPointF sunAt{};
    std::vector<QPointF> clouds{};  // top left of small clouds
    bool plane = true;
    QPointF planeAt{112, 22};
    double planeClimb = -14;  // degrees, negative climbs to the right
    bool runway = true;
    bool tower = true;
    bool windSock = false;
};

void PaintPlane(QPainter& p, QPointF at, double angle, double size) {
    // A jet seen from the side, nose to the right.
    p.save();
    p.translate(at);
    p.rotate(angle);
    p.scale(size / 40.0, size / 40.0);
    QPainterPath body;
    body.moveTo(-20, -1.5);
    body.lineTo(12, -2.5);
    body.cubicTo(17, -2.5, 20, -0.5, 20, 0.5);
    body.cubicTo(19, 2.2, 16, 2.6, 12, 2.6);
    body.lineTo(-16, 2.6);
    body.lineTo(-20, 1.0);
    body.closeSubpath();
    QPainterPath fin;
    fin.moveTo(-13, -1.6);
    fin.lineTo(-19.5, -10);
    fin.lineTo(-16, -10);
    fin.lineTo(-8, -2);
    fin.closeSubpath();
    QPainterPath wing;
    wing.moveTo(2, 1);
    wing.lineTo(-7, 9);
    wing.lineTo(-3.5, 9);
    wing.lineTo(8, 1.5);
    wing.closeSubpath();
    p.setPen(QPen(QColor(70, 80, 96), 0.8));
    p.setBrush(QColor(250, 251, 253));
    p.drawPath(body.united(fin));
    p.setBrush(QColor(214, 222, 232));
    p.drawPath(wing);
    // A band of windows and the company stripe.
    p.setPen(QPen(QColor(20, 90, 180), 1.1));
    p.drawLine(QPointF(-14, 0.4), QPointF(13, 0.4));
    p.restore();
}

void PaintTower(QPainter& p, double x, double ground, double height) {
    const double w = height * 0.16;
    // Shaft.
    QLinearGradient shaft(x - w / 2, 0, x + w / 2, 0);
    shaft.setColorAt(0, QColor(236, 236, 232));
    shaft.setColorAt(1, QColor(168, 170, 172));
    p.setPen(QPen(QColor(90, 94, 100), 0.6));
    p.setBrush(shaft);
    p.drawRect(QRectF(x - w / 2, ground - height * 0.78, w, height * 0.78));
    // The cab, wider at the top, with its windows.
    const double cabTop = ground - height;
    const double cabLow = ground - height * 0.78;
    QPolygonF cab;
    cab << QPointF(x - w * 1.5, cabTop + height * 0.06) << QPointF(x + w * 1.5, cabTop + height * 0.06)
        << QPointF(x + w * 1.1, cabLow) << QPointF(x - w * 1.1, cabLow);
    QLinearGradient glass(0, cabTop, 0, cabLow);
    glass.setColorAt(0, QColor(150, 220, 240));
    glass.setColorAt(1, QColor(40, 110, 150));
    p.setBrush(glass);
    p.drawPolygon(cab);
    p.setBrush(QColor(80, 84, 92));
    p.drawRect(QRectF(x - w * 1.6, cabTop, w * 3.2, height * 0.06));
    // Antenna.
    p.setPen(QPen(QColor(80, 84, 92), 0.8));
    p.drawLine(QPointF(x, cabTop), QPointF(x, cabTop - height * 0.12));
}

void PaintSkyline(QPainter& p, double horizon, double from, double to) {
    // A row of blocks of a distant city, in the blue of the haze.
    const double heights[] = {6, 9, 5, 11, 7, 4, 8, 13, 6, 5, 9, 7, 4, 10, 6, 8};
    const double widths[] = {5, 4, 6, 3, 5, 7, 4, 3, 6, 4, 5, 3, 6, 4, 5, 4};
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(128, 146, 172));
    double x = from;
    for (int i = 0; x < to; i = (i + 1) % 16) {
        const double w = std::min(widths[i], to - x);
        p.drawRect(QRectF(x, horizon - heights[i], w, heights[i] + 1));
        x += w;
    }
}

void PaintMountains(QPainter& p, double horizon, const QColor& far, const QColor& near) {
    QPainterPath back;
    back.moveTo(0, horizon + 1);
    const double ridge1[][2] = {{0, 44},  {14, 36},  {26, 42},  {42, 28},  {58, 40}, {70, 34},
                                {86, 44}, {102, 31}, {118, 39}, {134, 33}, {150, 42}};
    for (auto& pt : ridge1) back.lineTo(pt[0], horizon - (64 - pt[1]) * 0.8);
    back.lineTo(150, horizon + 1);
    back.closeSubpath();
    p.setPen(Qt::NoPen);
    p.setBrush(far);
    p.drawPath(back);
    // Snow on the highest tops.
    p.setBrush(QColor(246, 248, 252, 220));
    auto cap = [&](double x, double top, double w) {
        QPolygonF snow;
        const double y = horizon - (64 - top) * 0.8;
        snow << QPointF(x, y) << QPointF(x + w, y + w * 0.55) << QPointF(x + w * 0.3, y + w * 0.4)
             << QPointF(x - w * 0.3, y + w * 0.5) << QPointF(x - w, y + w * 0.55);
        p.drawPolygon(snow);
    };
    cap(42, 28, 4);
    cap(102, 31, 3.5);

    QPainterPath front;
    front.moveTo(0, horizon + 1);
    const double ridge2[][2] = {{0, 54}, {20, 49}, {40, 55}, {64, 50}, {90, 56}, {112, 51}, {134, 55}, {150, 52}};
    for (auto& pt : ridge2) front.lineTo(pt[0], horizon - (64 - pt[1]) * 0.8);
    front.lineTo(150, horizon + 1);
    front.closeSubpath();
    p.setBrush(near);
    p.drawPath(front);
}

// How wide a runway seen from its threshold is drawn: at the horizon, at the foot of the
// picture, its edge lines, and how its centre dashes grow as they come near.
struct RunwayShape {
    double centreX;
    double topHalf;
    double lowHalf;
    double edgeWidth;
    double firstDash;
    double dashGrowth;
    double dashWidth;
};

void PaintRunway(QPainter& p, double horizon, double height, const RunwayShape& r) {
    // The runway seen from its threshold, vanishing at the horizon.
    const double cx = r.centreX;
    QPolygonF strip;
    strip << QPointF(cx - r.topHalf, horizon + 2) << QPointF(cx + r.topHalf, horizon + 2)
          << QPointF(cx + r.lowHalf, height) << QPointF(cx - r.lowHalf, height);
    QLinearGradient asphalt(0, horizon, 0, height);
    asphalt.setColorAt(0, QColor(122, 126, 132));
    asphalt.setColorAt(1, QColor(60, 64, 70));
    p.setPen(QPen(QColor(247, 247, 241), r.edgeWidth));
    p.setBrush(asphalt);
    p.drawPolygon(strip);
    // Centre line: dashes that grow as they come near.
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(250, 250, 244));
    const double span = height - horizon - 2;
    for (double t = r.firstDash; t < 0.95; t *= r.dashGrowth) {
        const double t2 = std::min(t * (1 + (r.dashGrowth - 1) / 2), 0.98);
        const double y1 = horizon + 2 + span * t, y2 = horizon + 2 + span * t2;
        const double w1 = 0.3 + r.dashWidth * t, w2 = 0.3 + r.dashWidth * t2;
        QPolygonF dash;
        dash << QPointF(cx - w1, y1) << QPointF(cx + w1, y1) << QPointF(cx + w2, y2) << QPointF(cx - w2, y2);
        p.drawPolygon(dash);
    }
}

QImage Picture(const Scene& s) {
    QImage image(PictureWidth, PictureHeight, QImage::Format_RGB32);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);

    // Sky.
    QLinearGradient sky(0, 0, 0, s.horizon);
    sky.setColorAt(0, s.skyTop);
    sky.setColorAt(1, s.skyLow);
    p.fillRect(QRectF(0, 0, PictureWidth, s.horizon + 1), sky);

    if (s.sun) PaintSun(p, s.sunAt, 8, 11, 15, 2.2, 12, 0);
    for (const QPointF& c : s.clouds)
        PaintCloud(p, Cloud(c.x(), c.y(), 30), QColor(255, 255, 255, 235), QColor(226, 234, 244, 235),
                   QColor(0, 0, 0, 0), 0);

    if (s.mountains) PaintMountains(p, s.horizon, QColor(150, 168, 196), QColor(112, 138, 150));
    if (s.skyline) PaintSkyline(p, s.horizon, 96, 150);

    // Ground, and the sea where there is some.
    QLinearGradient grass(0, s.horizon, 0, PictureHeight);
    grass.setColorAt(0, QColor(124, 176, 84));
    grass.setColorAt(1, QColor(58, 126, 52));
    p.fillRect(QRectF(0, s.horizon, PictureWidth, PictureHeight - s.horizon), grass);
    if (s.sea) {
        QPainterPath water;
        water.moveTo(0, s.horizon);
        water.lineTo(s.seaUntil, s.horizon);
        water.cubicTo(s.seaUntil - 10, s.horizon + 6, s.seaUntil - 30, s.horizon + 8, s.seaUntil - 60, s.horizon + 9);
        water.lineTo(0, s.horizon + 11);
        water.closeSubpath();
        QLinearGradient blue(0, s.horizon, 0, s.horizon + 11);
        blue.setColorAt(0, QColor(40, 110, 190));
        blue.setColorAt(1, QColor(30, 140, 190));
        p.setPen(Qt::NoPen);
        p.setBrush(blue);
        p.drawPath(water);
        // A few glints.
        p.setPen(QPen(QColor(255, 255, 255, 170), 0.8));
        p.drawLine(QPointF(10, s.horizon + 3), QPointF(18, s.horizon + 3));
        p.drawLine(QPointF(30, s.horizon + 6), QPointF(36, s.horizon + 6));
        p.drawLine(QPointF(52, s.horizon + 2.5), QPointF(60, s.horizon + 2.5));
    }
    p.setPen(QPen(QColor(255, 255, 255, 90), 1));
    p.drawLine(QPointF(0, s.horizon + 0.5), QPointF(PictureWidth, s.horizon + 0.5));

    if (s.runway) PaintRunway(p, s.horizon, PictureHeight, {78, 3, 46, 0.9, 0.06, 1.55, 1.4});
    if (s.tower) PaintTower(p, 136, s.horizon + 8, 40);
    if (s.windSock) PaintWindSock(p, QPointF(22, 90), 30, 24, 9, 1, 2);
    if (s.plane) PaintPlane(p, s.planeAt, s.planeClimb, 34);

    if (!s.code.isEmpty()) {
        PaintLettering(p, QPointF(6, 22), s.code, Font(19), QColor(255, 255, 255), 1.2);
        PaintLettering(p, QPointF(7, 35), s.city, Font(10.5), QColor(255, 255, 255), 1.0);
    }
    return image;
}

std::vector<Scene> AirportScenes() {
    // Fields in the order of Scene, as designated initializers want them.
    return {
        // Paris-Charles de Gaulle: a clear morning, the city on the horizon.
        {.code = "LFPG",
         .city = "Paris",
         .skyTop = QColor(36, 104, 196),
         .skyLow = QColor(176, 214, 246),
         .skyline = true,
         .clouds = {QPointF(64, 8), QPointF(100, 34)},
         .planeAt = QPointF(72, 40),
         .planeClimb = -16},
        // Paris-Orly: a bright afternoon.
        {.code = "LFPO",
         .city = "Paris",
         .skyTop = QColor(62, 136, 214),
         .skyLow = QColor(206, 230, 248),
         .skyline = true,
         .sun = true,
         .sunAt = QPointF(122, 16),
         .clouds = {QPointF(58, 26)},
         .planeAt = QPointF(44, 48),
         .planeClimb = -10},
        // Paris-Le Bourget: a deep blue sky, business jets and air shows.
        {.code = "LFPB",
         .city = "Paris",
         .skyTop = QColor(24, 64, 150),
         .skyLow = QColor(148, 190, 236),
         .skyline = true,
         .clouds = {QPointF(80, 6), QPointF(8, 40)},
         .planeAt = QPointF(98, 30),
         .planeClimb = -28,
         .windSock = true},
        // Lyon-Saint-Exupéry: evening light, the Alps far away.
        {.code = "LFLL",
         .city = "Lyon",
         .skyTop = QColor(60, 80, 160),
         .skyLow = QColor(250, 186, 120),
         .mountains = true,
         .planeAt = QPointF(104, 20),
         .planeClimb = -12},
        // Marseille Provence: the étang de Berre and the white hills.
        {.code = "LFML",
         .city = "Marseille",
         .skyTop = QColor(20, 110, 210),
         .skyLow = QColor(170, 220, 250),
         .sea = true,
         .seaUntil = 96,
         .sun = true,
         .sunAt = QPointF(88, 17),
         .planeAt = QPointF(104, 45),
         .planeClimb = -8},
        // Nice Côte d'Azur: the runway by the sea, the mountains behind.
        {.code = "LFMN",
         .city = "Nice",
         .skyTop = QColor(14, 96, 200),
         .skyLow = QColor(160, 214, 248),
         .mountains = true,
         .sea = true,
         .seaUntil = 150,
         .clouds = {QPointF(96, 6)},
         .planeAt = QPointF(70, 30),
         .planeClimb = -18},
    };
}

// The picture of any airport without one of its own: the weather rather than a place.
QImage CommonPicture() {
    QImage image(PictureWidth, PictureHeight, QImage::Format_RGB32);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);

    const double horizon = 70;
    QLinearGradient sky(0, 0, 0, horizon);
    sky.setColorAt(0, QColor(40, 116, 206));
    sky.setColorAt(1, QColor(196, 226, 250));
    p.fillRect(QRectF(0, 0, PictureWidth, horizon + 1), sky);

    PaintSun(p, QPointF(50, 30), 13, 17, 24, 2.6, 12, Pi / 12);
    PaintCloud(p, Cloud(44, 22, 66), QColor(255, 255, 255), QColor(214, 224, 238), QColor(150, 166, 186), 1.0);
    PaintCloud(p, Cloud(104, 8, 36), QColor(255, 255, 255, 230), QColor(226, 234, 244, 230), QColor(0, 0, 0, 0), 0);
    PaintCloud(p, Cloud(6, 48, 30), QColor(255, 255, 255, 210), QColor(226, 234, 244, 210), QColor(0, 0, 0, 0), 0);

    // Two rolling hills.
    QPainterPath far;
    far.moveTo(0, horizon);
    far.cubicTo(30, horizon - 12, 70, horizon - 14, 100, horizon - 4);
    far.cubicTo(120, horizon - 10, 140, horizon - 12, 150, horizon - 8);
    far.lineTo(150, 100);
    far.lineTo(0, 100);
    far.closeSubpath();
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(112, 168, 88));
    p.drawPath(far);
    QPainterPath near;
    near.moveTo(0, horizon + 12);
    near.cubicTo(40, horizon + 2, 90, horizon + 4, 150, horizon + 14);
    near.lineTo(150, 100);
    near.lineTo(0, 100);
    near.closeSubpath();
    QLinearGradient grass(0, horizon, 0, 100);
    grass.setColorAt(0, QColor(92, 160, 70));
    grass.setColorAt(1, QColor(44, 112, 44));
    p.setBrush(grass);
    p.drawPath(near);

    PaintWindSock(p, QPointF(118, 92), 34, 26, 10, -1, 3);
    return image;
}

// ---------------------------------------------------------------------------------------------
// The start-up picture and the icon

void PaintCompassRose(QPainter& p, QPointF c, double r) {
    p.save();
    p.translate(c);
    // Rings.
    p.setBrush(QColor(255, 255, 255, 36));
    p.setPen(QPen(QColor(255, 255, 255, 170), 1.4));
    p.drawEllipse(QPointF(0, 0), r, r);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(QColor(255, 255, 255, 110), 1));
    p.drawEllipse(QPointF(0, 0), r * 0.62, r * 0.62);
    // Ticks every 10 degrees, longer every 30.
    for (int deg = 0; deg < 360; deg += 10) {
        const double a = deg * Pi / 180;
        const double in = deg % 30 == 0 ? r * 0.88 : r * 0.93;
        p.setPen(QPen(QColor(255, 255, 255, 190), deg % 30 == 0 ? 1.6 : 1));
        p.drawLine(QPointF(in * std::sin(a), -in * std::cos(a)), QPointF(r * std::sin(a), -r * std::cos(a)));
    }
    // Points: the four winds long, the four between short. Each point is a kite, one half lit.
    auto point = [&](double deg, double length, double width, const QColor& lit, const QColor& dark) {
        p.save();
        p.rotate(deg);
        QPolygonF left, right;
        left << QPointF(0, -length) << QPointF(-width, -width) << QPointF(0, 0);
        right << QPointF(0, -length) << QPointF(width, -width) << QPointF(0, 0);
        p.setPen(QPen(QColor(20, 40, 80, 160), 0.8));
        p.setBrush(lit);
        p.drawPolygon(left);
        p.setBrush(dark);
        p.drawPolygon(right);
        p.restore();
    };
    for (int i = 0; i < 4; ++i) point(45 + 90 * i, r * 0.56, r * 0.11, QColor(214, 230, 248), QColor(120, 158, 206));
    for (int i = 0; i < 4; ++i)
        point(90 * i, r * 0.84, r * 0.15, QColor(255, 255, 255), i == 0 ? QColor(226, 70, 40) : QColor(150, 184, 226));
    p.setPen(QPen(QColor(20, 40, 80), 1));
    p.setBrush(QColor(255, 210, 60));
    p.drawEllipse(QPointF(0, 0), r * 0.06, r * 0.06);

    // The winds' letters, French style: O for the west.
    const QFont f = Font(r * 0.2);
    const QString letters[] = {"N", "E", "S", "O"};
    for (int i = 0; i < 4; ++i) {
        const double a = i * Pi / 2;
        const double d = r * 1.17;
        QPainterPath path;
        path.addText(0, 0, f, letters[i]);
        const QRectF box = path.boundingRect();
        const QPointF at(d * std::sin(a) - box.center().x(), -d * std::cos(a) - box.center().y());
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 20, 50, 100));
        p.drawPath(path.translated(at + QPointF(1, 1)));
        p.setBrush(QColor(255, 255, 255));
        p.drawPath(path.translated(at));
    }
    p.restore();
}

QImage Splash() {
    const int w = 324, h = 537;
    QImage image(w, h, QImage::Format_RGB888);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::TextAntialiasing);

    const double horizon = 420;
    QLinearGradient sky(0, 0, 0, horizon);
    sky.setColorAt(0, QColor(8, 42, 112));
    sky.setColorAt(0.45, QColor(44, 118, 204));
    sky.setColorAt(1, QColor(196, 228, 252));
    p.fillRect(QRectF(0, 0, w, horizon + 1), sky);

    // Soft clouds low in the sky.
    PaintCloud(p, Cloud(-20, 318, 120), QColor(255, 255, 255, 200), QColor(228, 238, 250, 200), QColor(0, 0, 0, 0), 0);
    PaintCloud(p, Cloud(214, 296, 96), QColor(255, 255, 255, 180), QColor(228, 238, 250, 180), QColor(0, 0, 0, 0), 0);
    PaintCloud(p, Cloud(120, 360, 70), QColor(255, 255, 255, 150), QColor(228, 238, 250, 150), QColor(0, 0, 0, 0), 0);

    // Title.
    {
        const QFont title = Font(58, QFont::Black);
        QPainterPath path;
        path.addText(0, 0, title, QStringLiteral("SKELDA"));
        const QRectF box = path.boundingRect();
        const QPointF at(w / 2.0 - box.center().x(), 78);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 10, 40, 120));
        p.drawPath(path.translated(at + QPointF(2.5, 3)));
        QLinearGradient face(0, at.y() + box.top(), 0, at.y() + box.bottom());
        face.setColorAt(0, QColor(255, 255, 255));
        face.setColorAt(1, QColor(200, 226, 255));
        p.setBrush(face);
        p.drawPath(path.translated(at));

        const QFont motto = Font(19, QFont::Normal, true);
        QPainterPath line;
        line.addText(0, 0, motto, QString::fromUtf8("le zefir en temps réel"));
        const QRectF lineBox = line.boundingRect();
        const QPointF lineAt(w / 2.0 - lineBox.center().x(), 112);
        p.setBrush(QColor(0, 10, 40, 110));
        p.drawPath(line.translated(lineAt + QPointF(1.2, 1.5)));
        p.setBrush(QColor(236, 246, 255));
        p.drawPath(line.translated(lineAt));
        // A thin rule under the motto.
        p.setPen(QPen(QColor(255, 255, 255, 120), 1));
        p.drawLine(QPointF(62, 128.5), QPointF(w - 62, 128.5));
    }

    PaintCompassRose(p, QPointF(w / 2.0, 240), 82);

    // Ground with a runway vanishing towards the horizon.
    QLinearGradient grass(0, horizon, 0, h);
    grass.setColorAt(0, QColor(126, 180, 88));
    grass.setColorAt(1, QColor(38, 104, 40));
    p.fillRect(QRectF(0, horizon, w, h - horizon), grass);
    PaintRunway(p, horizon, h, {150, 5, 112, 1.6, 0.05, 1.5, 3.2});
    p.setPen(QPen(QColor(255, 255, 255, 90), 1));
    p.drawLine(QPointF(0, horizon + 0.5), QPointF(w, horizon + 0.5));

    PaintWindSock(p, QPointF(270, 512), 124, 66, 26, -1, 10);
    return image;
}

QImage Icon(int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(size / 64.0, size / 64.0);

    // A blue disc with a white rim.
    QRadialGradient disc(QPointF(24, 20), 44);
    disc.setColorAt(0, QColor(92, 170, 244));
    disc.setColorAt(1, QColor(12, 72, 168));
    p.setBrush(disc);
    p.setPen(QPen(QColor(255, 255, 255), 3.5));
    p.drawEllipse(QPointF(32, 32), 28.5, 28.5);

    // A wind sock on a white mast, blown to the right and sagging a little.
    p.setPen(QPen(QColor(255, 255, 255), 4, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(QPointF(17, 53), QPointF(17, 12));
    p.translate(19, 21);
    p.rotate(14);
    const double mouth = 19, tail = 6, length = 34;
    for (int i = 0; i < 4; ++i) {
        const double t0 = i / 4.0, t1 = (i + 1) / 4.0;
        auto at = [&](double t, double side) { return QPointF(length * t, side * (mouth + (tail - mouth) * t) / 2); };
        QPolygonF band;
        band << at(t0, -1) << at(t1, -1) << at(t1, 1) << at(t0, 1);
        p.setPen(Qt::NoPen);
        p.setBrush(i % 2 == 0 ? QColor(255, 92, 36) : QColor(255, 255, 255));
        p.drawPolygon(band);
    }
    return image;
}

// ---------------------------------------------------------------------------------------------

// The background of the monthly plot, 525 by 367, in a palette of 16 colours: bands of even colour
// from RGB(193,255,255) at the top to RGB(253,255,255) at the bottom, the red rising by 4 from one
// entry to the next. Each band is 23 rows, the last one the 22 rows that remain.
QImage PlotBackground() {
    constexpr int Width = 525;
    constexpr int Height = 367;
    constexpr int Colours = 16;
    constexpr int BandRows = 23;
    QImage image(Width, Height, QImage::Format_Indexed8);
    QList<QRgb> palette;
    for (int i = 0; i < Colours; ++i) palette << qRgb(193 + 4 * i, 255, 255);
    image.setColorTable(palette);
    for (int y = 0; y < Height; ++y) {
        uchar* row = image.scanLine(y);
        std::fill(row, row + Width, uchar(std::min(Colours - 1, y / BandRows)));
    }
    return image;
}

bool Save(const QImage& image, const QString& path, const char* format) {
    if (image.save(path, format)) return true;
    std::fprintf(stderr, "makeart: cannot write %s\n", qPrintable(path));
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: makeart <images folder> <artwork folder> [icon size...]\n");
        return 2;
    }
    // Text needs a font database, which needs a GUI application; it never shows a window.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    // Headless, it has no use for a runtime folder: keep the build quiet about the lack of one.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (!message.contains(QLatin1String("XDG_RUNTIME_DIR")))
            std::fprintf(stderr, "%s%s\n", type == QtWarningMsg ? "makeart: " : "", qPrintable(message));
    });
    int qtArgc = 1;
    QGuiApplication app(qtArgc, argv);

    const QDir images(QString::fromLocal8Bit(argv[1]));
    const QDir artwork(QString::fromLocal8Bit(argv[2]));
    if (!images.mkpath(".") || !artwork.mkpath("symbols") || !artwork.mkpath("app") || !artwork.mkpath("statistics")) {
        std::fprintf(stderr, "makeart: cannot create the output folders\n");
        return 1;
    }

    bool ok = true;
    const std::pair<const char*, std::function<QImage()>> symbols[] = {
        {"SUN", SymbolSun},     {"RAIN", SymbolRain},       {"SUNCLOUD", SymbolSunCloud},
        {"CLOUD", SymbolCloud}, {"STORM", SymbolStorm},     {"RAINSTORM", SymbolRainStorm},
        {"FOG", SymbolFog},     {"RAINBIG", SymbolRainBig}, {"SNOW", SymbolSnow},
    };
    for (const auto& [key, draw] : symbols)
        ok &= Save(draw(), artwork.filePath(QStringLiteral("symbols/%1.png").arg(key)), "PNG");

    ok &= Save(Splash(), artwork.filePath("app/splash.png"), "PNG");
    ok &= Save(Icon(64), artwork.filePath("app/skelda.png"), "PNG");
    ok &= Save(PlotBackground(), artwork.filePath("statistics/plot.png"), "PNG");
    for (int i = 3; i < argc; ++i) {
        const int size = std::atoi(argv[i]);
        const QString folder = QStringLiteral("icons/hicolor/%1x%1/apps").arg(size);
        ok &= size > 0 && artwork.mkpath(folder) && Save(Icon(size), artwork.filePath(folder + "/skelda.png"), "PNG");
    }

    ok &= Save(CommonPicture().convertToFormat(QImage::Format_RGB888), images.filePath("METEO2.BMP"), "BMP");
    for (const Scene& scene : AirportScenes())
        ok &= Save(Picture(scene).convertToFormat(QImage::Format_RGB888), images.filePath(scene.code + ".BMP"), "BMP");
    return ok ? 0 : 1;
}
