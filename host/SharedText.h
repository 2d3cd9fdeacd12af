// An immutable wide text that its holders share by counting. Texts travel from the product through
// cells into rows without being copied: at 100,000 rows the copies cost more than all other work.
#pragma once

#include <boost/smart_ptr/intrusive_ptr.hpp>
#include <string>
#include <utility>

class SharedText {
public:
    SharedText() noexcept = default;
    SharedText(std::wstring text) : m_rep(text.empty() ? nullptr : new Rep{0, std::move(text)}) {}
    SharedText(const wchar_t* text) : SharedText(std::wstring(text)) {}

    const std::wstring& Str() const noexcept { return m_rep ? m_rep->text : EmptyText(); }
    operator const std::wstring&() const noexcept { return Str(); }
    bool IsEmpty() const noexcept { return !m_rep; }

    /// True when both are one text in memory: a cheap test that never says equal wrongly, and that
    /// says different for equal texts of different origin.
    bool IsSame(const SharedText& other) const noexcept { return m_rep == other.m_rep; }

    friend bool operator==(const SharedText& a, const SharedText& b) noexcept {
        return a.IsSame(b) || a.Str() == b.Str();
    }

private:
    struct Rep {
        unsigned count;
        std::wstring text;

        friend void intrusive_ptr_add_ref(Rep* rep) noexcept { ++rep->count; }
        friend void intrusive_ptr_release(Rep* rep) noexcept {
            if (--rep->count == 0)
                Destroy(rep);
        }
        // Apart from its callers: inlined, it makes each of them bigger and GCC 12 suspect two
        // holders of one text of deleting it twice.
        [[gnu::noinline]] static void Destroy(Rep* rep) noexcept { delete rep; }
    };

    static const std::wstring& EmptyText() noexcept {
        static const std::wstring empty;
        return empty;
    }

    boost::intrusive_ptr<Rep> m_rep;
};
