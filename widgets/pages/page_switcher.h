// The segmented control that chooses what the window shows in place of the form.
//
// One Tab stop: Tab reaches the chosen segment, Left and Right choose the one beside it.
#pragma once

#include <QWidget>

class QRadioButton;

namespace frimbolate {

enum class Page { Form, PropertyList, Agents };
constexpr int pageCount = 3;

/// What a page is called in the menu, and its icon and shortcut.
struct PageTitle {
    const char* name;     ///< object name of the page's command
    const char* title;    ///< in the menu; "&" before the mnemonic
    const char* icon;     ///< file in resources/icons without ".svg"
    const char* shortcut; ///< portable text
};
const PageTitle& titleOf(Page page);

class PageSwitcher : public QWidget {
    Q_OBJECT

  public:
    explicit PageSwitcher(QWidget* parent = nullptr);

    /// Shows which page is chosen, without a signal.
    void setPage(Page page);
    Page page() const { return page_; }

  signals:
    /// The user has chosen another page.
    void chosen(frimbolate::Page page);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QRadioButton* segments_[pageCount];
    Page page_ = Page::Form;
};

} // namespace frimbolate
