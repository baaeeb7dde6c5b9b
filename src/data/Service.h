#pragma once

#include <memory>

namespace Quillane {

/// A global service object: created on first use, destroyed by `Release`.
template <typename Object>
class Service {
public:
    Object* operator->() {
        if (!object_)
            object_ = std::make_unique<Object>();
        return object_.get();
    }
    void Release() { object_.reset(); }
    bool Exists() const { return object_ != nullptr; }

private:
    std::unique_ptr<Object> object_;
};

} // namespace Quillane
