// The item that means "nothing chosen" has the colour of a field's placeholder.
#include "core/pop_up_items.h"
#include "widgets/controls/pop_up_button.h"
#include "widgets/style/tokens.h"

#include <QAbstractItemView>
#include <QApplication>

#include <gmock/gmock.h>

namespace frimbolate {
namespace {

class PopUpPlaceholder : public testing::TestWithParam<bool> {
  protected:
    PopUpPlaceholder() { button.resize(311, 32); }
    ~PopUpPlaceholder() override { QApplication::setPalette(style::palette(false)); }

    void setScheme() {
        QApplication::setPalette(style::palette(GetParam()));
        QCoreApplication::processEvents(); // palette changes reach the widgets as events
    }
    /// The largest difference from the background colour in a part of an image.
    static int strength(const QImage& picture, const QRect& part) {
        const int behind = picture.pixelColor(part.topLeft()).lightness();
        int strongest = 0;
        for (int y = part.top(); y <= part.bottom(); ++y)
            for (int x = part.left(); x <= part.right(); ++x)
                strongest =
                    std::max(strongest, std::abs(picture.pixelColor(x, y).lightness() - behind));
        return strongest;
    }
    int strengthOnButton(int item) {
        button.setCurrentIndex(item);
        return strength(button.grab().toImage(), QRect(10, 4, 200, 24)); // without the chevrons
    }
    int strengthInList(int item) {
        QAbstractItemView* list = button.view();
        const QRect row = list->visualRect(button.model()->index(item, 0));
        // Right of the check mark.
        return strength(list->viewport()->grab(row).toImage(),
                        QRect(32, 2, row.width() - 48, row.height() - 4));
    }
    /// The difference between a text colour and its background.
    static int contrast(const QColor& foreground, const QColor& behind) {
        return std::abs(foreground.lightness() - behind.lightness());
    }

    PopUpButton button{agentTargetItems()};
    const style::Tokens& t = style::tokens(GetParam());
};

TEST_P(PopUpPlaceholder, HasThePlaceholderColourOnTheButtonUntilAChoice) {
    // Set after the button was created, because the scheme may change while the program runs.
    setScheme();
    const int quiet = contrast(t.secondaryText, t.button);
    EXPECT_LE(strengthOnButton(0), quiet);
    EXPECT_GT(strengthOnButton(0), quiet / 2) << "the other scheme's would hardly show";
    EXPECT_GT(strengthOnButton(2), quiet);
    button.setCurrentIndex(0);
    button.setShownTitle("backup.sh");
    EXPECT_GT(strengthOnButton(0), quiet) << "a file's name is no placeholder";
}

TEST_P(PopUpPlaceholder, HasThePlaceholderColourInTheList) {
    setScheme();
    button.setCurrentIndex(3); // the highlighted item
    button.show();
    button.showPopup();
    const int quiet = contrast(t.secondaryText, t.surface);
    EXPECT_LE(strengthInList(0), quiet);
    EXPECT_GT(strengthInList(0), quiet / 2) << "the other scheme's would hardly show";
    EXPECT_GT(strengthInList(2), quiet);
}

INSTANTIATE_TEST_SUITE_P(Schemes, PopUpPlaceholder, testing::Bool(),
                         [](const auto& row) { return std::string(row.param ? "Dark" : "Light"); });

} // namespace
} // namespace frimbolate
