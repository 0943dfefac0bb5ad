// While the program waits for something outside it: what the sheet's status line says meanwhile,
// and which events of the desktop are input, which is not taken then.
#pragma once

#include <QEvent>
#include <QString>

#include <optional>

namespace kvqt {

class WaitState {
 public:
    struct Line {
        QString text;
        bool isNews;  // otherwise only the seconds have changed
    };

    // `what` is waited for since so many milliseconds. The line, when it changes.
    std::optional<Line> GoOn(const QString& what, unsigned milliseconds);
    // The line that was there before, when another has been shown since.
    std::optional<QString> End();
    // What the line says without a wait. False when it has to wait for the end.
    bool KeepLine(const QString& text);
    bool isOn() const { return isOn_; }

    static bool IsInput(QEvent::Type type);

 private:
    bool isOn_ = false;
    QString line_;   // without a wait
    QString what_;   // the line shown says that
    QString shown_;  // empty while no line of a wait is shown
};

}  // namespace kvqt
