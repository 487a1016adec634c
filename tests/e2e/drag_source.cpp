// A replacement for a file manager: a window from which the files named by its arguments can be
// dragged once. Prints whether the target under the pointer would accept them, and the final
// result.
#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

#include <iostream>

namespace {

class Source : public QLabel {
  public:
    Source() : QLabel("Files") {
        setWindowTitle("Files");
        setAlignment(Qt::AlignCenter);
        resize(200, 100);
    }

  protected:
    void mouseMoveEvent(QMouseEvent* event) override {
        if (!(event->buttons() & Qt::LeftButton))
            return;
        QList<QUrl> files;
        for (const QString& path : QApplication::arguments().mid(1))
            files.append(QUrl::fromLocalFile(path));
        auto* content = new QMimeData;
        content->setUrls(files);
        content->setText(QApplication::arguments().mid(1).join('\n')); // as file managers do
        auto* drag = new QDrag(this);
        drag->setMimeData(content);
        connect(drag, &QDrag::actionChanged, [](Qt::DropAction action) {
            std::cerr << (action == Qt::CopyAction ? "would be taken" : "would be refused")
                      << std::endl;
        });
        const bool isTaken = drag->exec(Qt::CopyAction) == Qt::CopyAction;
        std::cerr << (isTaken ? "was taken" : "was refused") << std::endl;
        hide(); // but keeps running, because the target fetches the data only after the drop
    }
};

} // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Source source;
    source.move(900, 700);
    source.show();
    return QApplication::exec();
}
