#include "Painted.h"

#include "ProcessorTime.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace {

class PaintWatch final : public QObject {
 public:
    bool isPainted = false;

 protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        isPainted = isPainted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }
};

/// Longer than a window waits before it paints.
constexpr int kSettleMs = 25;
constexpr int kLongestWaitMs = 60'000;

}  // namespace

void WaitForPaint(QWidget& widget, const std::function<void()>& work) {
    PaintWatch watch;
    widget.installEventFilter(&watch);
    work();
    const QDeadlineTimer end(kLongestWaitMs);
    while (!watch.isPainted) {
        if (end.hasExpired()) qFatal("nothing was painted");
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    }
}

void Settle() {
    bool isOver = false;
    QTimer::singleShot(kSettleMs, [&isOver] { isOver = true; });
    while (!isOver) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

double TookToPaint(QWidget& widget, const std::function<void()>& work) {
    Settle();
    return Took([&] { WaitForPaint(widget, work); });
}
