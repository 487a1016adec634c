#include "widgets/style/agent_rows.h"

#include "widgets/style/fonts.h"
#include "widgets/style/icons.h"
#include "widgets/style/painting.h"

#include <QAbstractItemView>
#include <QPainter>

namespace frimbolate::style {

namespace {

// Pixels of the 1x layout, from the left edge of the card and the top of the row.
constexpr int plateLeft = 8, plateRight = 616;
constexpr int markLeft = 24, markSide = 10;
constexpr int textLeft = 44, nameTop = 6, nameHeight = 17, sentenceTop = 23, sentenceHeight = 16;
constexpr int textRight = 504, textRightBesideFindings = 452;
constexpr int tagGap = 8, tagPadding = 6, tagHeight = 16, tagRadius = 4;
constexpr int signLeft = 468, signSide = 16, countLeft = 488, runLeft = 520, runWidth = 88;

/// The parts of a row, painted one after another.
class RowPainter {
  public:
    RowPainter(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index)
        : painter_(painter), option_(option), index_(index), tokens_(tokens(option.palette)) {}

    void paint() {
        paintBackground();
        paintMark();
        paintName();
        const int right = problems() > 0 ? textRightBesideFindings : textRight;
        painter_.setFont(font(FontRole::hint));
        drawLine(index_.data(AgentSentence).toString(),
                 place(textLeft, sentenceTop, right - textLeft, sentenceHeight),
                 tokens_.secondaryText, Qt::ElideRight);
        if (problems() > 0)
            paintProblems();
        const QString run = index_.data(AgentNextRun).toString();
        drawLine(run.isEmpty() ? QString(u'—') : run, place(runLeft, 0, runWidth, agentRowHeight),
                 run.isEmpty() ? tokens_.secondaryText : tokens_.text, Qt::ElideRight);
    }

  private:
    bool isSelected() const { return option_.state.testFlag(QStyle::State_Selected); }
    bool isHovered() const { return option_.state.testFlag(QStyle::State_MouseOver); }
    int problems() const { return index_.data(AgentProblems).toInt(); }

    QRect place(int x, int y, int width, int height) const {
        return {option_.rect.left() + scaled(x - agentRowsInset), option_.rect.top() + scaled(y),
                scaled(width), scaled(height)};
    }

    void paintBackground() {
        const auto* view = qobject_cast<const QAbstractItemView*>(option_.widget);
        const QColor fill = isSelected()  ? tokens_.accentSoft
                            : isHovered() ? tokens_.hover
                                          : QColor(Qt::transparent);
        const QColor border =
            isSelected() && view && view->hasFocus() ? tokens_.accent : QColor(Qt::transparent);
        drawRoundedBox(painter_, place(plateLeft, 0, plateRight - plateLeft, agentRowHeight),
                       scaled(6), fill, border, 2);
    }

    void paintMark() {
        const QRectF name = place(markLeft, nameTop, markSide, nameHeight);
        QRectF mark(0, 0, scaled(markSide), scaled(markSide));
        mark.moveCenter(name.center());
        constexpr double lineWidth = 1.5;
        switch (static_cast<AgentMark>(index_.data(AgentState).toInt())) {
        case AgentMark::On:
            return drawRoundedBox(painter_, mark, mark.width() / 2, tokens_.accent);
        case AgentMark::Off:
            return drawRoundedBox(painter_, mark, mark.width() / 2, Qt::transparent,
                                  tokens_.secondaryText, lineWidth);
        case AgentMark::Unknown:
            painter_.fillRect(
                QRectF(mark.left(), mark.center().y() - lineWidth / 2, mark.width(), lineWidth),
                tokens_.secondaryText);
        }
    }

    void paintName() {
        const QString tag = index_.data(AgentTag).toString();
        const QFontMetrics tagMetrics(font(FontRole::toolbar));
        const int tagWidth =
            tag.isEmpty() ? 0 : tagMetrics.horizontalAdvance(tag) + 2 * scaled(tagPadding);
        const int right = problems() > 0 ? textRightBesideFindings : textRight;
        QRect line = place(textLeft, nameTop, right - textLeft, nameHeight);
        const int forTag = tagWidth > 0 ? tagWidth + scaled(tagGap) : 0;
        painter_.setFont(font(FontRole::rowLabel));
        const QString name = painter_.fontMetrics().elidedText(
            index_.data().toString(), Qt::ElideMiddle, line.width() - forTag);
        painter_.setPen(tokens_.text);
        painter_.drawText(line, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine, name);
        if (tag.isEmpty())
            return;
        const int left =
            line.left() + painter_.fontMetrics().horizontalAdvance(name) + scaled(tagGap);
        const QRect box(left, line.center().y() + 1 - scaled(tagHeight) / 2, tagWidth,
                        scaled(tagHeight));
        drawRoundedBox(painter_, box, scaled(tagRadius),
                       isSelected() || isHovered() ? tokens_.surface : tokens_.window);
        painter_.setFont(font(FontRole::toolbar));
        painter_.setPen(tokens_.secondaryText);
        painter_.drawText(box, Qt::AlignCenter, tag);
    }

    void paintProblems() {
        const int top = (agentRowHeight - signSide) / 2;
        toolIcon("warning").paint(&painter_, place(signLeft, top, signSide, signSide));
        painter_.setPen(tokens_.warnText);
        painter_.drawText(place(countLeft, 0, runLeft - countLeft, agentRowHeight),
                          Qt::AlignVCenter | Qt::AlignLeft, QString::number(problems()));
    }

    void drawLine(const QString& text, const QRect& rect, const QColor& colour,
                  Qt::TextElideMode mode) {
        painter_.setPen(colour);
        painter_.drawText(rect, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine,
                          painter_.fontMetrics().elidedText(text, mode, rect.width()));
    }

    QPainter& painter_;
    const QStyleOptionViewItem& option_;
    const QModelIndex& index_;
    const Tokens& tokens_;
};

} // namespace

void AgentRowDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    painter->save();
    RowPainter(*painter, option, index).paint();
    painter->restore();
}

QSize AgentRowDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {scaled(plateRight), scaled(agentRowHeight)};
}

} // namespace frimbolate::style
