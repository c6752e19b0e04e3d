// One counted reference to an object a host handed over, kept until it is replaced or its
// holder dies.
#pragma once

namespace corvid::registration {

template <class Interface>
class HeldReference {
  public:
    HeldReference() = default;
    ~HeldReference() { Reset(nullptr); }
    HeldReference(const HeldReference&) = delete;
    HeldReference& operator=(const HeldReference&) = delete;

    // Holds `object` (null holds nothing) and lets go of the previous one.
    void Reset(Interface* object) {
        if (object != nullptr) object->AddRef();  // first: `object` may be the one held
        Interface* previous = held_;
        held_ = object;
        if (previous != nullptr) previous->Release();
    }
    // What is held, with no reference added; null when nothing is.
    Interface* get() const { return held_; }
    // A new reference for the caller; null when nothing is held.
    Interface* Share() const {
        if (held_ != nullptr) held_->AddRef();
        return held_;
    }

  private:
    Interface* held_ = nullptr;
};

}  // namespace corvid::registration
