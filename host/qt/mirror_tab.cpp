// Tab controls: the captions and the pane of a property sheet. The pages lie in front of the pane.
#include <host/qt/mirror.h>
#include <platform/window/input.h>

#include <commctrl.h>

#include <QTabBar>
#include <QTabWidget>

namespace kvqt {
namespace {

constexpr int kLongestCaption = 256;

class TabMirror : public Mirror {
 public:
    TabMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        tabs_ = new QTabWidget(parent);
        tabs_->tabBar()->setFocusPolicy(Qt::TabFocus);
        tabs_->setUsesScrollButtons(true);
        tabs_->lower();
        SetWidget(tabs_);
        const HWND sheet = GetParent(handle);
        QObject::connect(
            tabs_, &QTabWidget::currentChanged, tabs_, [&owner, handle, sheet](int index) {
                owner.Act(handle, [sheet, index] { kv::input::SelectPage(sheet, index); });
            });
    }

    QWidget* FocusWidget() const override { return tabs_->tabBar(); }

 protected:
    void SyncState(unsigned changes) override {
        if ((changes & kv::kChangedItems) != 0) SyncCaptions();
        if ((changes & (kv::kChangedItems | kv::kChangedGeometry | kv::kChangedFont)) != 0) {
            FitCaptions();
        }
        if ((changes & (kv::kChangedItems | kv::kChangedSelection)) != 0) {
            const int selected = static_cast<int>(Ask(TCM_GETCURSEL));
            if (selected >= 0 && tabs_->currentIndex() != selected)
                tabs_->setCurrentIndex(selected);
        }
    }

    QString AccessibleName() const override { return WindowTextOf(GetParent(window())); }

 private:
    QString CaptionOf(int index) const {
        char text[kLongestCaption] = "";
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = text;
        item.cchTextMax = kLongestCaption;
        Ask(TCM_GETITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        return FromAnsi(text);
    }

    void SyncCaptions() {
        const int count = static_cast<int>(Ask(TCM_GETITEMCOUNT));
        while (tabs_->count() > count) delete tabs_->widget(tabs_->count() - 1);
        for (int i = 0; i < count; ++i) {
            const QString caption = CaptionOf(i);
            if (i >= tabs_->count()) {
                tabs_->addTab(new QWidget, caption);
            } else if (tabs_->tabText(i) != caption) {
                tabs_->setTabText(i, caption);
            }
            tabs_->widget(i)->setAccessibleName(caption);
        }
    }

    // Narrower letters spare people the arrows between which the last tabs would hide.
    void FitCaptions() {
        constexpr int kNarrowest = 75;
        constexpr int kStep = 5;
        QTabBar* bar = tabs_->tabBar();
        for (int stretch = 100; stretch >= kNarrowest; stretch -= kStep) {
            QFont font = tabs_->parentWidget()->font();
            if (stretch < 100) font.setStretch(stretch);
            if (bar->font() != font) bar->setFont(font);
            if (bar->sizeHint().width() <= tabs_->width()) break;
        }
    }

    QTabWidget* tabs_;
};

}  // namespace

MirrorPointer MakeTabMirror(QtDisplay& display, HWND window, QWidget* parent) {
    return std::make_unique<TabMirror>(display, window, parent);
}

}  // namespace kvqt
