#include "CourseworkDelegate.h"

#include "res/strings/ViewStrings.h"
#include "store/DateEncoding.h"
#include "store/GradeText.h"

#include <QApplication>
#include <QFontMetrics>
#include <QLocale>
#include <QPainter>
#include <QStyleOptionProgressBar>

#include <algorithm>
#include <cmath>

namespace {

constexpr double HandheldLineHeight = 13.0;
constexpr double HandheldScoreColumn = 73.0;

QColor Blend(const QColor& a, const QColor& b, double share)
{
    return QColor::fromRgbF(static_cast<float>(a.redF() * (1 - share) + b.redF() * share),
                            static_cast<float>(a.greenF() * (1 - share) + b.greenF() * share),
                            static_cast<float>(a.blueF() * (1 - share) + b.blueF() * share));
}

QColor OverdueColor(const QPalette& palette)
{
    // Red that stays readable on a dark palette too.
    return palette.color(QPalette::Base).lightness() < 128 ? QColor(0xff, 0x7b, 0x72)
                                                           : QColor(0xc0, 0x1c, 0x28);
}

QStyle* StyleOf(const QStyleOptionViewItem& option)
{
    return option.widget ? option.widget->style() : QApplication::style();
}

// The weekday, the date and the time in the user's short formats, without
// seconds: "Fri 11/21/26 11:59 PM".
QString DueText(const QDateTime& due)
{
    const QLocale locale;
    QString timeFormat = locale.timeFormat(QLocale::ShortFormat);
    timeFormat.remove(QStringLiteral(":ss"));
    return ViewStrings::DueWhen(locale.toString(due.date(), QStringLiteral("ddd")),
                                locale.toString(due.date(), QLocale::ShortFormat),
                                locale.toString(due.time(), timeFormat));
}

} // namespace

CCourseworkDelegate::CCourseworkDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

double CCourseworkDelegate::ScaleFactor(const QFontMetrics& metrics)
{
    return metrics.height() / HandheldLineHeight;
}

int CCourseworkDelegate::ScoreColumnWidth(const QFontMetrics& metrics)
{
    return static_cast<int>(std::lround(HandheldScoreColumn * ScaleFactor(metrics)));
}

QString CCourseworkDelegate::ScoreText(double score, double possible)
{
    if (score < 0.0)
        return {};
    if (possible > 0.0)
        return ViewStrings::PercentText(
            GradeText::NumberToText(GradeText::PercentOf(score / possible)));
    return ViewStrings::PointsOnly(GradeText::NumberToText(score));
}

QString CCourseworkDelegate::ScoreDetailText(double score, double possible)
{
    if (score < 0.0 || possible <= 0.0)
        return {};
    return ViewStrings::ScoreOfPossible(GradeText::NumberToText(score),
                                        GradeText::NumberToText(possible));
}

QString CCourseworkDelegate::SpokenText(const QModelIndex& index)
{
    const QString name = index.data(Qt::DisplayRole).toString();
    if (index.data(HeaderRole).toBool())
        return name;
    const QString when = DueText(BrindleDate::ToDateTime(index.data(DueDateRole).toDouble()));
    const QString due = index.data(OverdueRole).toBool() ? ViewStrings::OverdueSince(when)
                                                         : ViewStrings::DueOn(when);
    const int completed = std::clamp(index.data(CompletedRole).toInt(), 0, 100);
    const QString row =
        ViewStrings::RowSpoken(name, due, ViewStrings::PercentText(QString::number(completed)));
    const double score = index.data(ScoreRole).toDouble();
    const double possible = index.data(PossibleRole).toDouble();
    const QString scoreText = ScoreText(score, possible);
    if (scoreText.isEmpty())
        return row;
    const QString detail = ScoreDetailText(score, possible);
    return detail.isEmpty() ? ViewStrings::RowSpokenWithScore(row, scoreText)
                            : ViewStrings::RowSpokenWithScoreOf(row, scoreText, detail);
}

QSize CCourseworkDelegate::sizeHint(const QStyleOptionViewItem& option,
                                    const QModelIndex& index) const
{
    const int line = QFontMetrics(option.font).height();
    const int width = option.rect.width() > 0 ? option.rect.width() : line * 20;
    if (index.data(HeaderRole).toBool())
        return {width, line + line * 3 / 4};
    return {width, line * 2 + line * 2 / 3};
}

void CCourseworkDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                const QModelIndex& index) const
{
    painter->save();
    if (index.data(HeaderRole).toBool())
        PaintHeader(painter, option, index);
    else
        PaintCoursework(painter, option, index);
    painter->restore();
}

void CCourseworkDelegate::PaintHeader(QPainter* painter, const QStyleOptionViewItem& option,
                                      const QModelIndex& index) const
{
    const QPalette& palette = option.palette;
    const QRect rect = option.rect;
    const int line = QFontMetrics(option.font).height();

    painter->fillRect(
        rect, Blend(palette.color(QPalette::Base), palette.color(QPalette::Highlight), 0.22));
    painter->setPen(Blend(palette.color(QPalette::Base), palette.color(QPalette::Highlight), 0.6));
    painter->drawLine(rect.bottomLeft(), rect.bottomRight());

    QFont font = option.font;
    font.setBold(true);
    painter->setFont(font);
    painter->setPen(palette.color(QPalette::Text));
    const QRect textRect = rect.adjusted(line / 2, 0, -line / 2, 0);
    const QString text = QFontMetrics(font).elidedText(index.data(Qt::DisplayRole).toString(),
                                                       Qt::ElideRight, textRect.width());
    painter->drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter, text);
}

void CCourseworkDelegate::PaintCoursework(QPainter* painter, const QStyleOptionViewItem& option,
                                          const QModelIndex& index) const
{
    QStyleOptionViewItem opt = option;
    initStyleOption(&opt, index);
    opt.text.clear();
    QStyle* style = StyleOf(option);
    style->drawPrimitive(QStyle::PE_PanelItemViewItem, &opt, painter, option.widget);

    const QPalette& palette = option.palette;
    const bool selected = option.state & QStyle::State_Selected;
    const QColor textColor = palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
    const QColor quietColor =
        Blend(textColor, palette.color(selected ? QPalette::Highlight : QPalette::Base), 0.4);
    const bool overdue = index.data(OverdueRole).toBool();
    const QColor overdueColor = selected ? textColor : OverdueColor(palette);

    const QFontMetrics metrics(option.font);
    const int line = metrics.height();
    const int pad = line / 3;
    const QRect rect = option.rect;
    const int top = rect.top() + (rect.height() - 2 * line) / 2;

    if (overdue)
        painter->fillRect(QRect(rect.left(), rect.top(), std::max(3, line / 5), rect.height()),
                          overdueColor);

    // Right to left: the score column, the progress column, then the text.
    const double score = index.data(ScoreRole).toDouble();
    const double possible = index.data(PossibleRole).toDouble();
    const QString scoreText = ScoreText(score, possible);
    const QString detailText = ScoreDetailText(score, possible);
    QFont scoreFont = option.font;
    scoreFont.setBold(true);
    const bool predicted = index.data(ScoreSourceRole).toInt() != 0;
    scoreFont.setItalic(predicted);
    const int scoreWidth = std::max({ScoreColumnWidth(metrics),
                                     QFontMetrics(scoreFont).horizontalAdvance(scoreText) + pad,
                                     metrics.horizontalAdvance(detailText) + pad});
    const QRect scoreRect(rect.right() - pad - scoreWidth + 1, top, scoreWidth, 2 * line);

    const int completed = std::clamp(index.data(CompletedRole).toInt(), 0, 100);
    const QString percentText = ViewStrings::PercentText(QString::number(completed));
    const int percentWidth =
        metrics.horizontalAdvance(ViewStrings::PercentText(QStringLiteral("100")));
    const int barWidth = line * 3;
    const int progressWidth = barWidth + pad + percentWidth;
    const QRect progressRect(scoreRect.left() - pad * 2 - progressWidth, top, progressWidth,
                             2 * line);

    const int textLeft = rect.left() + line / 2 + (overdue ? line / 5 : 0);
    const QRect textRect(textLeft, top, std::max(0, progressRect.left() - pad - textLeft),
                         2 * line);

    // Name and due date.
    QFont nameFont = option.font;
    nameFont.setWeight(QFont::DemiBold);
    painter->setFont(nameFont);
    painter->setPen(textColor);
    const QRect nameRect(textRect.left(), top, textRect.width(), line);
    painter->drawText(nameRect, Qt::AlignLeft | Qt::AlignVCenter,
                      QFontMetrics(nameFont).elidedText(index.data(Qt::DisplayRole).toString(),
                                                        Qt::ElideRight, nameRect.width()));

    const QString when = DueText(BrindleDate::ToDateTime(index.data(DueDateRole).toDouble()));
    const QString dueText = overdue ? ViewStrings::OverdueSince(when) : ViewStrings::DueOn(when);
    painter->setFont(option.font);
    painter->setPen(overdue ? overdueColor : quietColor);
    const QRect dueRect(textRect.left(), top + line, textRect.width(), line);
    painter->drawText(dueRect, Qt::AlignLeft | Qt::AlignVCenter,
                      metrics.elidedText(dueText, Qt::ElideRight, dueRect.width()));

    // Percent complete: a small bar and its number.
    QStyleOptionProgressBar bar;
    bar.initFrom(option.widget ? option.widget : nullptr);
    bar.state = QStyle::State_Enabled | QStyle::State_Horizontal;
    bar.direction = option.direction;
    bar.palette = palette;
    bar.minimum = 0;
    bar.maximum = 100;
    bar.progress = completed;
    bar.textVisible = false;
    const int barHeight = std::max(5, line * 3 / 5);
    bar.rect =
        QRect(progressRect.left(), progressRect.center().y() - barHeight / 2, barWidth, barHeight);
    style->drawControl(QStyle::CE_ProgressBar, &bar, painter, option.widget);
    painter->setPen(quietColor);
    painter->drawText(
        QRect(progressRect.left() + barWidth + pad, progressRect.top(), percentWidth, 2 * line),
        Qt::AlignRight | Qt::AlignVCenter, percentText);

    // The score: the percent above, the points below.
    if (!scoreText.isEmpty()) {
        const QColor scoreColor =
            predicted && !selected ? palette.color(QPalette::Link) : textColor;
        painter->setFont(scoreFont);
        painter->setPen(scoreColor);
        painter->drawText(QRect(scoreRect.left(), top, scoreRect.width(), line),
                          Qt::AlignRight | Qt::AlignVCenter, scoreText);
        QFont detailFont = option.font;
        detailFont.setItalic(predicted);
        painter->setFont(detailFont);
        painter->setPen(predicted && !selected ? scoreColor : quietColor);
        painter->drawText(QRect(scoreRect.left(), top + line, scoreRect.width(), line),
                          Qt::AlignRight | Qt::AlignVCenter, detailText);
    }
}
