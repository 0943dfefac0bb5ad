// One action of the input layer: the modifier keys held during it, that files are checked once in
// it, and that the watcher learns of it. Used by the two files that implement the layer.
#pragma once

#include <platform/shell/file_changes.h>

namespace kv::input {

class ActionScope {
 public:
    // `window` is what is acted on; null for what only passes by.
    explicit ActionScope(unsigned modifiers, HWND window = nullptr);
    ~ActionScope();
    ActionScope(const ActionScope&) = delete;
    ActionScope& operator=(const ActionScope&) = delete;

 private:
    unsigned previous_;
    bool watched_;
    FileTrust trust_;
};

}  // namespace kv::input
