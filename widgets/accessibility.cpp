#include "widgets/accessibility.h"

#include "widgets/controls/warning_label.h"
#include "widgets/controls/wrapped_text.h"
#include "widgets/form/script_pop_over.h"
#include "widgets/main_window.h"
#include "widgets/sheets/qt_alerts.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace frimbolate {

namespace {

/// The children of the window, then the pop-over, which is listed while hidden as any child is.
class MainWindowAccessible : public QAccessibleWidget {
  public:
    explicit MainWindowAccessible(QWidget* window)
        : QAccessibleWidget(window, QAccessible::Window) {}

    int childCount() const override {
        return QAccessibleWidget::childCount() + (popOver() ? 1 : 0);
    }

    QAccessibleInterface* child(int index) const override {
        return index == QAccessibleWidget::childCount() ? popOver()
                                                        : QAccessibleWidget::child(index);
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        return child && child == popOver() ? QAccessibleWidget::childCount()
                                           : QAccessibleWidget::indexOfChild(child);
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        // The pop-over is in front of all other children.
        QAccessibleInterface* front = popOver();
        return front && front->rect().contains(x, y) ? front : QAccessibleWidget::childAt(x, y);
    }

  private:
    QAccessibleInterface* popOver() const {
        return QAccessible::queryAccessibleInterface(
            widget()->findChild<ScriptPopOver*>({}, Qt::FindDirectChildrenOnly));
    }
};

class PopOverAccessible : public QAccessibleWidget {
  public:
    explicit PopOverAccessible(QWidget* popOver)
        : QAccessibleWidget(popOver, QAccessible::Dialog) {}

    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(widget()->parentWidget());
    }
};

/// Exposes the widget as a label with a text, not as an editor with children.
class TextAccess : public QAccessibleWidget {
  public:
    explicit TextAccess(WrappedText* text) : QAccessibleWidget(text, QAccessible::StaticText) {}

    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? static_cast<WrappedText*>(widget())->text()
                                         : QAccessibleWidget::text(kind);
    }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    if (auto* window = qobject_cast<MainWindow*>(object))
        return new MainWindowAccessible(window);
    if (auto* popOver = qobject_cast<ScriptPopOver*>(object))
        return new PopOverAccessible(popOver);
    if (auto* alert = qobject_cast<AlertDialog*>(object))
        return new QAccessibleWidget(alert, QAccessible::AlertMessage);
    if (auto* text = qobject_cast<WrappedText*>(object))
        return new TextAccess(text);
    if (auto* warning = qobject_cast<WarningLabel*>(object))
        return new QAccessibleWidget(warning, QAccessible::AlertMessage);
    return nullptr;
}

} // namespace

void installAccessibility() { QAccessible::installFactory(makeAccessible); }

} // namespace frimbolate
