// The modifier keys held during one action of the input layer. Used by the two files that implement
// it.
#pragma once

namespace kv::input {

class ActionScope {
 public:
    explicit ActionScope(unsigned modifiers);
    ~ActionScope();
    ActionScope(const ActionScope&) = delete;
    ActionScope& operator=(const ActionScope&) = delete;

 private:
    unsigned previous_;
};

}  // namespace kv::input
