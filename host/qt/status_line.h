// The line beside the buttons of a sheet: what the last choice changed beside itself. A text that is
// too long ends with dots and is whole in the tooltip; screen readers are told of each new one.
#pragma once

#include <QStatusBar>

namespace kvqt {

class StatusLine : public QStatusBar {
 public:
    explicit StatusLine(QWidget* parent);
    // Screen readers are told of what is news.
    void Say(const QString& text, bool isNews = true);

 protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

 private:
    void SetToolTip();

    QString text_;
};

}  // namespace kvqt
