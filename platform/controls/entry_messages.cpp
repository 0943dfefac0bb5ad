// What combo boxes and list boxes answer alike.
#include <platform/controls/control_support.h>
#include <platform/controls/entry_messages.h>
#include <platform/display/tell.h>

#include <cstring>

namespace kv {
namespace {

LRESULT InsertAt(const EntryCall& call, int index) {
    EntryState& state = call.state;
    state.WillChange(call.window);
    const bool texts = call.holds == Holds::kTexts;
    const int at =
        state.entries.Insert(index, texts ? TextOf(call.lParam) : "", texts ? 0 : call.lParam);
    if (at < 0) return -1;
    if (state.selection >= at) ++state.selection;
    state.TellItems(call.window);
    return at;
}

LRESULT Find(const EntryCall& call, Match match) {
    const EntryList& entries = call.state.entries;
    const int after = IndexOf(call.wParam);
    if (call.holds == Holds::kValues) return entries.FindData(after, call.lParam);
    return entries.Find(after, TextOf(call.lParam), match);
}

// Null for an index that is not there.
Entry* EntryOf(const EntryCall& call) {
    const int at = IndexOf(call.wParam);
    return call.state.entries.Has(at) ? &call.state.entries[at] : nullptr;
}

}  // namespace

EntryAnswer AnswerTo(std::span<const EntryMessage> table, UINT message) {
    for (const EntryMessage& row : table) {
        if (row.message == message) return row.answer;
    }
    return nullptr;
}

LRESULT AddEntry(const EntryCall& call) {
    const bool sorted = call.order == Order::kSorted && call.holds == Holds::kTexts;
    return InsertAt(call, sorted ? call.state.entries.SortedPlace(TextOf(call.lParam)) : -1);
}

LRESULT InsertEntry(const EntryCall& call) {
    return InsertAt(call, IndexOf(call.wParam));
}

LRESULT DeleteEntry(const EntryCall& call) {
    EntryState& state = call.state;
    const int at = IndexOf(call.wParam);
    if (!state.entries.Has(at)) return -1;
    state.WillChange(call.window);
    state.entries.Remove(at);
    if (state.selection == at) {
        state.selection = -1;
    } else if (state.selection > at) {
        --state.selection;
    }
    state.TellItems(call.window);
    return state.entries.Count();
}

LRESULT CountEntries(const EntryCall& call) {
    return call.state.entries.Count();
}

LRESULT FindEntry(const EntryCall& call) {
    return Find(call, Match::kPrefix);
}

LRESULT FindWholeEntry(const EntryCall& call) {
    return Find(call, Match::kWhole);
}

LRESULT CopyEntry(const EntryCall& call) {
    const Entry* entry = EntryOf(call);
    if (!entry) return -1;
    if (call.holds == Holds::kTexts) return CopyOut(entry->text, call.lParam);
    if (call.lParam) {
        std::memcpy(reinterpret_cast<void*>(call.lParam), &entry->data, sizeof entry->data);
    }
    return sizeof entry->data;
}

LRESULT EntryLength(const EntryCall& call) {
    const Entry* entry = EntryOf(call);
    return entry ? static_cast<LRESULT>(entry->text.size()) : -1;
}

LRESULT EntryData(const EntryCall& call) {
    const Entry* entry = EntryOf(call);
    return entry ? entry->data : -1;
}

LRESULT SetEntryData(const EntryCall& call) {
    Entry* entry = EntryOf(call);
    if (!entry) return -1;
    if (entry->data == call.lParam) return 0;
    call.state.WillChange(call.window);
    entry->data = call.lParam;
    call.state.TellItems(call.window);
    return 0;
}

LRESULT SetEntriesRedraw(Window& window, EntryState& state, WPARAM on, LPARAM lParam) {
    const HWND control = window.handle;
    const bool was = window.redraw;
    if (was && !on) state.BeginQuiet();
    DefWindowProcA(control, WM_SETREDRAW, on, lParam);
    if (!WindowFromHandle(control) || was || !on) return 0;
    if (const unsigned changes = state.EndQuiet()) TellChanged(control, changes);
    return 0;
}

UINT MeasureItem(HWND control, UINT controlType, UINT item, UINT height) {
    MEASUREITEMSTRUCT measure{};
    measure.CtlType = controlType;
    measure.CtlID = static_cast<UINT>(GetDlgCtrlID(control));
    measure.itemID = item;
    measure.itemHeight = height;
    SendMessageA(GetParent(control), WM_MEASUREITEM, measure.CtlID,
                 reinterpret_cast<LPARAM>(&measure));
    return measure.itemHeight;
}

}  // namespace kv
