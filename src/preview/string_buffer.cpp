#include "preview/string_buffer.h"

#include "automation/vb_error.h"
#include "preview/checked_arithmetic.h"
#include "preview/vb_strings.h"

namespace corvid::preview {

CStringBuffer::CStringBuffer() { Initialise(); }

void CStringBuffer::Initialise() {
    if (store_.empty()) store_.assign(kChunk, '\0');
    capacity_ = kChunk;
    used_ = 0;
}

void CStringBuffer::EnsureCapacity(std::int32_t n) {
    const std::int32_t needed = Add32(used_, n);
    while (needed > capacity_) {
        store_.append(kChunk, '\0');
        capacity_ = Add32(capacity_, kChunk);
    }
}

void CStringBuffer::Append(const std::string& s) {
    const std::int32_t n = Len(s);
    EnsureCapacity(n);
    MidAssign(store_, Add32(used_, 1), s);
    used_ = Add32(used_, n);
}

void CStringBuffer::AppendV(const automation::Variant& v) { Append(automation::CStr(v)); }

void CStringBuffer::Insert(std::int32_t Index, const std::string& Text) {
    if (Index > Add32(used_, 1)) {
        throw automation::VbError::Standard(automation::vb_errors::kInvalidProcedureCall);
    }
    const std::int32_t n = Len(Text);
    if (Index > used_) {
        Append(Text);
        return;
    }
    EnsureCapacity(n);
    const std::string tail = Mid(store_, Index, Add32(Sub32(used_, Index), 1));
    MidAssign(store_, Add32(Index, n), tail);
    MidAssign(store_, Index, Text);
    used_ = Add32(used_, n);
}

void CStringBuffer::Remove(std::int32_t Index, std::int32_t& Length) {
    if (Add32(Index, Length) < used_) {
        // The block moved down is longer than the tail on purpose: it drags NUL padding along.
        const std::string block =
            Mid(store_, Add32(Index, Length), Add32(Sub32(used_, Index), Length));
        MidAssign(store_, Index, block);
        MidAssign(store_, Add32(Sub32(used_, Length), 1), Repeat(Length, '\0'), Length);
        used_ = Sub32(used_, Length);
        return;
    }
    Length = Sub32(Add32(used_, 1), Index);
    MidAssign(store_, Index, Repeat(Length, '\0'), Length);
    used_ = Sub32(Index, 1);
}

void CStringBuffer::Replace(const std::string& orgText, const std::string& NewText) {
    if (!orgText.empty()) {
        std::string result;
        result.reserve(store_.size());
        std::size_t from = 0;
        for (std::size_t at = store_.find(orgText); at != std::string::npos;
             at = store_.find(orgText, from)) {
            result.append(store_, from, at - from);
            result += NewText;
            from = at + orgText.size();
        }
        result.append(store_, from, std::string::npos);
        store_ = std::move(result);
    }
    capacity_ = Len(store_);
    used_ = InStr(1, store_, std::string(1, '\0')) - 1;
    if (used_ == 0) used_ = capacity_;
}

std::string CStringBuffer::Value() const { return Left(store_, used_); }

void CStringBuffer::SetValue(const std::string& value) {
    Initialise();
    Append(value);
}

}  // namespace corvid::preview
