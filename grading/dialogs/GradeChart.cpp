#include "GradeChart.h"

#include "res/strings/ReportStrings.h"
#include "store/GradeText.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {

bool IsDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < 128;
}

// A band colour running from green for the best grade to red for the worst,
// however many grades the scale has: light on a light palette, deep on a dark
// one, so that the palette's own text stays readable on it.
QColor BandColor(size_t band, size_t bands, bool dark)
{
    const double share = bands > 1 ? double(band) / double(bands - 1) : 0.0;
    const float hue = float(0.33 * (1.0 - share));
    return dark ? QColor::fromHsvF(hue, 0.45f, 0.36f) : QColor::fromHsvF(hue, 0.22f, 0.97f);
}
QColor BarColor(bool dark)
{
    return dark ? QColor(0x6c, 0xa8, 0xf0) : QColor(0x1e, 0x63, 0xb0);
}

} // namespace

GradeChart::GradeChart(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("gradeChart"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
}

void GradeChart::SetCourses(std::vector<Course> courses)
{
    m_courses = std::move(courses);
    ComputeScale();
    // A screen reader cannot see the bars: it reads each course's line.
    setAccessibleDescription(SpokenText());
    updateGeometry();
    update();
}

void GradeChart::ComputeScale()
{
    double low = 100.0;
    double high = 100.0;
    for (const Course& course : m_courses) {
        if (course.fraction >= 0.0 && std::isfinite(course.fraction)) {
            low = std::min(low, course.fraction * 100.0);
            high = std::max(high, course.fraction * 100.0);
        }
        // A lowest grade that starts at 0 would squeeze every other band; its
        // band is simply cut at the left edge.
        for (const Band& band : course.bands) {
            if (band.minimum > 0.0)
                low = std::min(low, band.minimum);
        }
    }
    // Room for the lowest band below its minimum, in steps of ten. A percent
    // far above 100 (a score over a tiny "Out Of") would squeeze every other
    // row into a sliver: the scale stops at MaxScale and such a bar runs to
    // the right edge with its percent written beside it.
    m_low = std::clamp(std::floor((low - 5.0) / 10.0) * 10.0, 0.0, 90.0);
    m_high = std::min(std::ceil(high / 10.0) * 10.0, MaxScale);
}

std::vector<double> GradeChart::Ticks() const
{
    // A fixed number of steps from a 10-20-50 series, counted, never summed
    // up from a double: whatever the range, the axis has a handful of ticks.
    const double span = m_high - m_low;
    double step = 10.0;
    for (double candidate : {10.0, 20.0, 25.0, 50.0, 100.0}) {
        step = candidate;
        if (span / candidate <= MaxTicks)
            break;
    }
    // Ticks on whole multiples of the step read best (60, 80, ... not 50, 70).
    const int first = static_cast<int>(std::ceil(m_low / step - 1e-9));
    const int last = static_cast<int>(std::floor(m_high / step + 1e-9));
    std::vector<double> ticks;
    for (int i = first; i <= last; ++i)
        ticks.push_back(i * step);
    return ticks;
}

int GradeChart::RowHeight() const
{
    return fontMetrics().height() * 2;
}

int GradeChart::NameWidth() const
{
    // Names are shown whole up to the longest a course name can be; the
    // dialog grows to give the chart that width.
    const int line = fontMetrics().height();
    int width = line * 4;
    for (const Course& course : m_courses)
        width = std::max(width, fontMetrics().horizontalAdvance(course.name) + line / 2);
    return std::min(width, line * 24);
}

QSize GradeChart::sizeHint() const
{
    const int line = fontMetrics().height();
    const int rows = std::max<int>(1, static_cast<int>(m_courses.size()));
    return {NameWidth() + line * 20, rows * RowHeight() + line * 2};
}

QSize GradeChart::minimumSizeHint() const
{
    const int line = fontMetrics().height();
    return {line * 14, RowHeight() + line * 2};
}

double GradeChart::XOf(const QRect& track, double percent) const
{
    const double clamped = std::clamp(percent, m_low, m_high);
    return track.left() + (clamped - m_low) / (m_high - m_low) * track.width();
}

void GradeChart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int line = fontMetrics().height();
    const QRect area = rect().adjusted(line / 2, line / 4, -line, -line / 4);

    if (m_courses.empty()) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(area, Qt::AlignCenter, ReportStrings::ChartNoCourses());
        return;
    }

    const int nameWidth = NameWidth();
    const int gap = line / 2;
    const int axisHeight = line + line / 2;
    const int rowHeight = RowHeight();
    int top = area.top();
    for (const Course& course : m_courses) {
        const QRect name(area.left(), top, nameWidth, rowHeight);
        const QRect track(area.left() + nameWidth + gap, top + rowHeight / 8,
                          area.width() - nameWidth - gap, rowHeight - rowHeight / 4);
        PaintRow(painter, course, track, name);
        top += rowHeight;
    }
    PaintAxis(painter, QRect(area.left() + nameWidth + gap, top, area.width() - nameWidth - gap,
                             axisHeight));
}

void GradeChart::PaintRow(QPainter& painter, const Course& course, const QRect& track,
                          const QRect& name) const
{
    painter.setPen(palette().color(QPalette::WindowText));
    const QString elided = fontMetrics().elidedText(course.name, Qt::ElideRight, name.width());
    painter.drawText(name, Qt::AlignLeft | Qt::AlignVCenter, elided);

    // Grade bands: from each minimum up to the next better grade's minimum.
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.8);
    painter.setFont(small);
    const QFontMetrics smallMetrics(small);
    double upper = m_high;
    for (size_t i = 0; i < course.bands.size(); ++i) {
        const Band& band = course.bands[i];
        const double left = XOf(track, band.minimum);
        const double right = XOf(track, upper);
        if (right > left) {
            const QRectF bandRect(left, track.top(), right - left, track.height());
            painter.fillRect(bandRect, BandColor(i, course.bands.size(), IsDark(palette())));
            if (smallMetrics.horizontalAdvance(band.gradeName) + 4 < bandRect.width()) {
                painter.setPen(palette().color(QPalette::WindowText));
                painter.drawText(bandRect.adjusted(2, 1, -2, -1), Qt::AlignLeft | Qt::AlignTop,
                                 band.gradeName);
            }
        }
        upper = std::min(upper, band.minimum);
    }
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(track).adjusted(0.5, 0.5, -0.5, -0.5));

    // The current percent: a bar in the lower half of the track.
    painter.setFont(font());
    if (course.fraction < 0.0 || !std::isfinite(course.fraction)) {
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(track.adjusted(fontMetrics().height() / 3, 0, 0, 0),
                         Qt::AlignLeft | Qt::AlignVCenter, ReportStrings::ChartNoScore());
        return;
    }
    const double x = XOf(track, course.fraction * 100.0);
    const QRectF bar(track.left(), track.top() + track.height() * 0.5, x - track.left(),
                     track.height() * 0.4);
    painter.setPen(Qt::NoPen);
    const QColor barColor = BarColor(IsDark(palette()));
    painter.setBrush(barColor);
    painter.drawRoundedRect(bar, 2, 2);
    painter.fillRect(QRectF(x - 1, track.top(), 2, track.height()), barColor);

    const QString text =
        ReportStrings::Percent(GradeText::NumberToText(GradeText::PercentOf(course.fraction)));
    const int textWidth = painter.fontMetrics().horizontalAdvance(text);
    const bool inside = x - track.left() > textWidth + 6;
    const QRectF textRect =
        inside ? QRectF(track.left(), bar.top() - 1, x - track.left() - 4, bar.height() + 2)
               : QRectF(x + 4, bar.top() - 1, textWidth + 2, bar.height() + 2);
    QFont bold = font();
    bold.setBold(true);
    bold.setPointSizeF(bold.pointSizeF() * 0.8);
    painter.setFont(bold);
    // Inside the bar the text takes the colour that contrasts with it.
    painter.setPen(inside ? (IsDark(palette()) ? QColor(Qt::black) : QColor(Qt::white)) : barColor);
    painter.drawText(textRect, (inside ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter, text);
    painter.setFont(font());
}

void GradeChart::PaintAxis(QPainter& painter, const QRect& area) const
{
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawLine(area.topLeft(), area.topRight());
    for (double value : Ticks()) {
        const double x = XOf(area, value);
        painter.drawLine(QPointF(x, area.top()), QPointF(x, area.top() + 4));
        const QString label = GradeText::NumberToText(value);
        const int width = fontMetrics().horizontalAdvance(label);
        painter.drawText(QRectF(x - width, area.top() + 4, width * 2, area.height() - 4),
                         Qt::AlignHCenter | Qt::AlignTop, label);
    }
}

QString GradeChart::SpokenText() const
{
    QStringList lines;
    for (const Course& course : m_courses) {
        if (course.fraction < 0.0 || !std::isfinite(course.fraction)) {
            lines.append(ReportStrings::ChartLine(course.name, ReportStrings::ChartNoScore()));
            continue;
        }
        const double percent = course.fraction * 100.0;
        QString grade;
        // Bands are best first: the first whose minimum is reached.
        for (const Band& band : course.bands)
            if (percent >= band.minimum) {
                grade = band.gradeName;
                break;
            }
        const QString percentText = GradeText::NumberToText(GradeText::PercentOf(course.fraction));
        lines.append(ReportStrings::ChartLine(
            course.name, ReportStrings::PercentAndGrade(percentText, grade).trimmed()));
    }
    return lines.join(u'\n');
}
