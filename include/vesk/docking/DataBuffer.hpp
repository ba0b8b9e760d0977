#pragma once

#include <vesk/export.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/values/CRectangle.hpp>
#include <vesk/values/TamPoint.hpp>
#include <vesk/values/TamSize.hpp>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vesk {

// Sections open at the same time, read and write together.
inline constexpr int32_t DATABUFFER_MAX_SECTIONS = 8;
// Largest single write and largest array, unless large mode is on.
inline constexpr int32_t DATABUFFER_LIMIT = 0xFF00000;
// Position of the first content byte: the array starts with the 4-byte content length.
inline constexpr int32_t DATABUFFER_CONTENT_START = 4;
// The string budget value meaning "no budget".
inline constexpr int32_t DATABUFFER_NO_BUDGET = INT32_MIN;

struct DataBufferArray;

// A growable little-endian byte buffer with nested length-prefixed sections, the carrier of
// the docking records. Storage is one byte array whose first 4 bytes hold the number of
// content bytes after them; the cursor counts from the start of the array, so content starts
// at position 4. One cursor serves reading and writing; reads never pass the content length
// nor the end of the innermost open section.
//
// Copies share the array by reference count and a buffer copies it before it first writes to
// a shared one. Every operation takes the buffer's own spin lock, so one buffer may be used
// from several threads.
//
// Sizes and positions are 32-bit signed numbers, as in the stored format.
class VESK_API DataBuffer {
public:
    // An empty buffer without an array; the first write makes one.
    DataBuffer() noexcept;
    // Shares `b`'s array and takes over its cursor, sections and settings.
    DataBuffer(const DataBuffer& b);
    DataBuffer(DataBuffer&& b) noexcept;
    ~DataBuffer();
    DataBuffer& operator=(const DataBuffer& b);
    DataBuffer& operator=(DataBuffer&& b) noexcept;

    // The stored form, for persisting: the 4-byte little-endian content length, then the content.
    std::vector<uint8_t> GetBytes() const;
    // Replaces the content by a stored form and moves the cursor to the first content byte,
    // closing all sections and clearing the error flag. A content length larger than the bytes
    // that follow is cut to them; the result is false then, and false with an empty buffer
    // when fewer than 4 bytes are given or the content passes the size limit.
    bool SetBytes(const void* bytes, size_t n);

    // Number of content bytes.
    int32_t GetContentSize() const;
    // Bytes the array can hold, header included; 0 before the first write.
    int32_t GetCapacity() const;
    // The cursor, from the start of the array.
    int32_t GetPos() const;
    // Moves the cursor, kept between the first content byte and the end of the content.
    void SetPos(int32_t pos);
    // Number of sections open.
    int32_t GetSectionDepth() const;

    // Set when a write did not fit; every write is refused until a write section closes.
    bool HasError() const;
    // Large mode lifts the size limit of writes and of the array.
    void SetLargeMode(bool large);
    bool IsLargeMode() const;
    // Bytes of string text still allowed to be read or written; DATABUFFER_NO_BUDGET for none.
    void SetStringBudget(int32_t budget);
    int32_t GetStringBudget() const;

    // Opens a section for writing and writes its 4-byte length placeholder; false when
    // DATABUFFER_MAX_SECTIONS are open already.
    bool OpenWriteSection();
    // Patches the innermost write section's length, returns the cursor to where it was and
    // clears the error flag; false when the innermost section is not a write section.
    bool CloseWriteSection();
    // Reads a section length and enters the section; false when too many sections are open
    // (nothing read) or the length is negative or longer than the enclosing bytes allow.
    bool OpenReadSection();
    // Skips what is left of the innermost read section; returns the bytes skipped, 0 when the
    // innermost section is not a read section.
    int32_t CloseReadSection();

    // Writes n bytes at the cursor; returns n, or 0 when refused or when they did not fit.
    int32_t WriteBytes(const void* data, int32_t n);
    // Typed writes; false when refused.
    bool WriteInt32(int32_t value);
    bool WriteUInt32(uint32_t value);
    bool WriteByte(uint8_t value);
    bool WriteDouble(double value);
    bool WriteSize(const TamSize& size);
    bool WritePoint(const TamPoint& point);
    bool WriteRect(const CRectangle& rect);
    // The byte count, then the text; refused when the string budget is smaller than the text.
    bool WriteString(const SString& text);

    // Copies up to n readable bytes; returns the number copied.
    int32_t ReadBytes(void* data, int32_t n);
    // Typed reads: when fewer bytes than the value needs are readable, the value is 0, the
    // cursor moves past what was readable and the result is false.
    bool ReadInt32(int32_t& value);
    bool ReadUInt32(uint32_t& value);
    bool ReadByte(uint8_t& value);
    bool ReadDouble(double& value);
    // Pairs and rectangles read their 32-bit fields one by one with the rule above.
    bool ReadSize(TamSize& size);
    bool ReadPoint(TamPoint& point);
    bool ReadRect(CRectangle& rect);
    // Reads a string of at most `limit` bytes, marked UTF-8 when its bytes are. A count that
    // is negative, over the limit or over the string budget fails and leaves `text` alone; a
    // text cut short fails and empties `text`.
    bool ReadString(SString& text, int32_t limit = int32_t(STRING_MAXLEN));

private:
    struct Section {
        int32_t nStart;
        // Reads stop here (read sections only).
        int64_t nLimit;
        bool bValid;
        bool bWrite;
    };

    int32_t ContentEnd() const;
    int64_t ReadLimit() const;
    int32_t Readable() const;
    bool MakeRoom(int64_t needed);
    int32_t PutBytes(const void* data, int32_t n);
    int32_t GetBytesAt(void* data, int32_t n);
    bool PutFixed(const uint8_t* bytes, int32_t n);
    bool GetFixed(uint8_t* bytes, int32_t n);
    bool GetInt32(int32_t& value);
    void SwapState(DataBuffer& b) noexcept;
    void Reset();

    DataBufferArray* m_pArray = nullptr;
    int32_t m_nPos = DATABUFFER_CONTENT_START;
    int32_t m_nStringBudget = DATABUFFER_NO_BUDGET;
    int32_t m_nSections = 0;
    Section m_aSections[DATABUFFER_MAX_SECTIONS] = {};
    bool m_bError = false;
    bool m_bLarge = false;
    mutable std::atomic<uint32_t> m_nLock{0};
};

// Opens a write section for its lifetime; closes it only if it opened.
class VESK_API LocalSizedWrite {
public:
    explicit LocalSizedWrite(DataBuffer& buffer);
    ~LocalSizedWrite();
    LocalSizedWrite(const LocalSizedWrite&) = delete;
    LocalSizedWrite& operator=(const LocalSizedWrite&) = delete;
    // Whether the section opened.
    bool IsOpen() const { return m_bOpen; }

private:
    DataBuffer& m_rBuffer;
    bool m_bOpen;
};

// Opens a read section for its lifetime; closes it, skipping its unread bytes, only if it
// opened successfully. A section entered with a bad length therefore stays entered.
class VESK_API LocalSizedRead {
public:
    explicit LocalSizedRead(DataBuffer& buffer);
    ~LocalSizedRead();
    LocalSizedRead(const LocalSizedRead&) = delete;
    LocalSizedRead& operator=(const LocalSizedRead&) = delete;
    // Whether the section opened successfully.
    bool IsOpen() const { return m_bOpen; }

private:
    DataBuffer& m_rBuffer;
    bool m_bOpen;
};

// Moves the cursor to an absolute position for its lifetime (to patch an earlier field) and
// puts it back afterwards.
class VESK_API LocalWriteJump {
public:
    LocalWriteJump(DataBuffer& buffer, int32_t pos);
    ~LocalWriteJump();
    LocalWriteJump(const LocalWriteJump&) = delete;
    LocalWriteJump& operator=(const LocalWriteJump&) = delete;

private:
    DataBuffer& m_rBuffer;
    int32_t m_nSaved;
};

} // namespace vesk
