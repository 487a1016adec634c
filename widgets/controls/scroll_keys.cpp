#include "widgets/controls/scroll_keys.h"

#include <QAbstractScrollArea>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>
#include <iterator>

namespace frimbolate {

namespace {

struct Row {
    int key;
    QAbstractSlider::SliderAction action;
};
constexpr Row scrollKeys[] = {
    {Qt::Key_Up, QAbstractSlider::SliderSingleStepSub},
    {Qt::Key_Down, QAbstractSlider::SliderSingleStepAdd},
    {Qt::Key_PageUp, QAbstractSlider::SliderPageStepSub},
    {Qt::Key_PageDown, QAbstractSlider::SliderPageStepAdd},
    {Qt::Key_Home, QAbstractSlider::SliderToMinimum},
    {Qt::Key_End, QAbstractSlider::SliderToMaximum},
};

} // namespace

ScrollKeys::ScrollKeys(QAbstractScrollArea* area) : QObject(area), area_(area) {}

bool ScrollKeys::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        const auto* row = std::ranges::find(scrollKeys, key, &Row::key);
        if (row != std::end(scrollKeys)) {
            area_->verticalScrollBar()->triggerAction(row->action);
            return true;
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace frimbolate
