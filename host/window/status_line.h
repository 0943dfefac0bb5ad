// Watches what a person does in a sheet and tells the display's status line what each choice changed
// beside itself. Used by the window of a printer; the module takes no part in it.
#pragma once

#include <host/window/change_summary.h>
#include <host/record/record_store.h>
#include <platform/window/input.h>

#include <vector>

namespace kvhost {

// Watches from its making to its end, of which only one may last at a time.
class StatusLine : public kv::input::Watcher {
   public:
    // The record is the one that the sheet's pages write.
    StatusLine(const SettingNames& names, const Record& record);
    ~StatusLine() override;

    void Begun(HWND window) override;
    void Ended() override;

   private:
    struct Action {
        HWND sheet{};  // null for an action that is not told of
        Record before;
        ActedOn acted;
    };

    const SettingNames& names_;
    const Record& record_;
    std::vector<Action> actions_;  // those of a dialog lie above the one that opened it
};

}  // namespace kvhost
