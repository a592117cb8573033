// Owns one reference to an object of the system.
#pragma once

namespace archicad {

template <class Interface>
class ComPointer {
public:
    ComPointer() = default;
    ~ComPointer() {
        if (pointer != nullptr) pointer->Release();
    }
    ComPointer(const ComPointer&) = delete;
    ComPointer& operator=(const ComPointer&) = delete;

    /// Where a function that makes an object puts it; to be asked once.
    Interface** Receive() { return &pointer; }
    Interface* Get() const { return pointer; }
    Interface* operator->() const { return pointer; }

private:
    Interface* pointer = nullptr;
};

} // namespace archicad
