#pragma once

#include <windows.h>

// Owns one GDI object (font, brush, pen, bitmap) and deletes it at the end of its life.
template <typename Handle>
class CGdiHandle {
public:
    CGdiHandle() = default;
    explicit CGdiHandle(Handle handle) : handle_(handle) {}
    ~CGdiHandle() { Reset(); }
    CGdiHandle(const CGdiHandle&) = delete;
    CGdiHandle& operator=(const CGdiHandle&) = delete;

    Handle Get() const { return handle_; }
    void Reset(Handle handle = nullptr) {
        if (handle_ != nullptr) DeleteObject(handle_);
        handle_ = handle;
    }

private:
    Handle handle_ = nullptr;
};

using CFontHandle = CGdiHandle<HFONT>;
using CBrushHandle = CGdiHandle<HBRUSH>;
