#pragma once

#include "usdcore/pxr.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

PXR_NAMESPACE_OPEN_SCOPE

/// The first failure met while decoding a crate file. Decoding stages stop at
/// the first problem; the reader turns the message into one diagnostic that
/// names the file.
class Sdf_CrateError
{
public:
    /// Records \p message unless an earlier failure is already recorded (the
    /// first one is the cause, later ones are consequences). Returns false so
    /// that callers can write `return error->Fail("...")`.
    bool Fail(std::string message)
    {
        if (_message.empty()) {
            _message = std::move(message);
        }
        return false;
    }
    /// Says where the recorded failure happened, e.g. which field of which
    /// spec. Returns false like Fail().
    bool AddContext(const std::string& where)
    {
        _message += " (" + where + ")";
        return false;
    }
    bool Failed() const { return !_message.empty(); }
    const std::string& GetMessage() const { return _message; }

private:
    std::string _message;
};

/// A read position inside a byte span that cannot leave it: every read checks
/// the bytes left first, and a failed read records why and leaves the output
/// untouched. Offsets read from the file go through Seek(), which checks them.
class Sdf_CrateByteCursor
{
public:
    Sdf_CrateByteCursor(std::string_view bytes, Sdf_CrateError* error)
        : _bytes(bytes), _error(error)
    {
    }

    size_t Tell() const { return _position; }
    size_t GetSize() const { return _bytes.size(); }
    size_t Remaining() const { return _bytes.size() - _position; }
    std::string_view GetBytes() const { return _bytes; }
    Sdf_CrateError* GetError() const { return _error; }

    bool Seek(uint64_t offset)
    {
        if (offset > _bytes.size()) {
            return _error->Fail("offset " + std::to_string(offset) + " is past the end (" +
                                std::to_string(_bytes.size()) + " bytes)");
        }
        _position = size_t(offset);
        return true;
    }

    /// Moves by a signed distance read from the file (the crate's relative
    /// jumps), checking that the target stays inside the span.
    bool Jump(int64_t distance, size_t from)
    {
        if (distance < 0 ? uint64_t(-(distance + 1)) + 1 > from
                         : uint64_t(distance) > _bytes.size() - from) {
            return _error->Fail("jump of " + std::to_string(distance) + " from offset " +
                                std::to_string(from) + " leaves the file");
        }
        _position = size_t(int64_t(from) + distance);
        return true;
    }

    /// Reads a trivially copyable value stored little-endian.
    template <class T>
    bool Read(T* out)
    {
        static_assert(std::is_trivially_copyable<T>::value, "raw reads need plain types");
        if (!_Need(sizeof(T), 1)) {
            return false;
        }
        std::memcpy(out, _bytes.data() + _position, sizeof(T));
        _position += sizeof(T);
        return true;
    }

    /// Hands out the next \p count bytes in place.
    bool ReadBytes(uint64_t count, std::string_view* out)
    {
        if (!_Need(count, 1)) {
            return false;
        }
        *out = _bytes.substr(_position, size_t(count));
        _position += size_t(count);
        return true;
    }

    /// Copies \p count elements of \p elementSize bytes each into \p out.
    bool ReadArray(uint64_t count, size_t elementSize, void* out)
    {
        if (!_Need(count, elementSize)) {
            return false;
        }
        // An empty destination may be null, which memcpy must not see.
        if (count == 0) {
            return true;
        }
        std::memcpy(out, _bytes.data() + _position, size_t(count) * elementSize);
        _position += size_t(count) * elementSize;
        return true;
    }

    /// Checks, before anything is allocated, that \p count elements of at
    /// least \p elementSize bytes each can still follow. This is what keeps a
    /// tiny file from asking for gigabytes.
    bool CheckCount(uint64_t count, size_t elementSize) { return _Need(count, elementSize); }

private:
    bool _Need(uint64_t count, size_t elementSize)
    {
        const uint64_t left = Remaining();
        if (elementSize != 0 && count > left / elementSize) {
            return _error->Fail("needs " + std::to_string(count) + " x " +
                                std::to_string(elementSize) + " bytes at offset " +
                                std::to_string(_position) + " but only " + std::to_string(left) +
                                " remain");
        }
        return true;
    }

    std::string_view _bytes;
    size_t _position = 0;
    Sdf_CrateError* _error;
};

PXR_NAMESPACE_CLOSE_SCOPE
