// The page that shows the property list that a save would write for the form as it stands.
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace frimbolate {

class ElidedLabel;
class FormBinder;
struct FormPresentation;
class PropertyListView;

class PropertyListPage : public QWidget {
    Q_OBJECT

  public:
    /// The binder must outlive the page, which is updated with the form while it is shown.
    explicit PropertyListPage(FormBinder& binder, QWidget* parent = nullptr);

    /// The control that has the focus at first.
    QWidget* firstControl() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void addHeader();
    void addFaultStrip();
    void update(const FormPresentation& presentation);
    void setFault(const QString& fault);
    void copy();
    void setCopied(bool copied);

    FormBinder& binder_;
    PropertyListView* view_;
    ElidedLabel* fileName_;
    QPushButton* copy_;
    QLabel* faultSign_;
    ElidedLabel* fault_;
    bool hasCopied_ = false;
};

} // namespace frimbolate
