// One action of the input layer: the modifier keys held during it, and that files are checked
// once in it. Used by the two files that implement the layer.
#pragma once

#include <platform/shell/file_changes.h>

namespace kv::input {

class ActionScope {
 public:
    explicit ActionScope(unsigned modifiers);
    ~ActionScope();
    ActionScope(const ActionScope&) = delete;
    ActionScope& operator=(const ActionScope&) = delete;

 private:
    unsigned previous_;
    FileTrust trust_;
};

}  // namespace kv::input
