// What stands in place of a list without rows: a title, a line, and a button for the way out.
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace frimbolate {

class ElidedLabel;

class EmptyList : public QWidget {
    Q_OBJECT

  public:
    explicit EmptyList(QWidget* parent = nullptr);

    /// \param button its title; empty for none
    /// \param isDefault whether the button is the accent one
    void setWords(const QString& title, const QString& line, const QString& button = {},
                  bool isDefault = false);

  signals:
    void pressed();

  private:
    ElidedLabel* line_;
    QLabel* title_;
    QPushButton* button_;
};

} // namespace frimbolate
