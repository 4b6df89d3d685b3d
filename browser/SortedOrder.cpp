#include "browser/SortedOrder.h"

#include "platform/RuntimeError.h"

#include <QLocale>

#include <unicode/ucol.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <numeric>

namespace {

struct CloseCollator {
    void operator()(UCollator* collator) const { ucol_close(collator); }
};
using Collator = std::unique_ptr<UCollator, CloseCollator>;

/// The locale that the environment names for sorting, else the one that the user has chosen; the
/// root locale ("") where there is none, since people do not expect plain code-point order ("C").
QByteArray SortingLocale() {
    for (const char* variable : {"LC_ALL", "LC_COLLATE", "LANG"}) {
        const QByteArray value = qgetenv(variable);
        if (!value.isEmpty()) {
            const QByteArray name =
                value.left(value.indexOf('.') < 0 ? value.size() : value.indexOf('.'));
            return name == "C" || name == "POSIX" ? QByteArray() : name;
        }
    }
    const QLocale user = QLocale::system().collation();
    return user == QLocale::c() ? QByteArray() : user.bcp47Name().toLatin1();
}

void ThrowIfOutOfMemory(UErrorCode status) {
    if (status == U_MEMORY_ALLOCATION_ERROR) {
        throw RuntimeError(ErrorNumber::OutOfMemory);
    }
}

Collator OpenCollator(const QByteArray& locale) {
    UErrorCode status = U_ZERO_ERROR;
    Collator collator(ucol_open(locale.constData(), &status));
    ThrowIfOutOfMemory(status);
    if (U_FAILURE(status)) {
        if (locale.isEmpty()) {
            throw RuntimeError(ErrorNumber::InvalidProcedureCall);
        }
        return OpenCollator({}); // the environment's text does not have the form of a locale
    }
    ucol_setAttribute(collator.get(), UCOL_STRENGTH, UCOL_SECONDARY, &status);
    ucol_setAttribute(collator.get(), UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &status);
    ThrowIfOutOfMemory(status);
    return collator;
}

const UCollator* SortingCollator() {
    static const Collator collator = OpenCollator(SortingLocale());
    return collator.get();
}

/// The sort keys of all names, one behind the other, each made once.
class SortKeys {
public:
    explicit SortKeys(size_t count) {
        m_ends.reserve(count);
        m_bytes.reserve(count * 32);
    }

    void Add(const std::u16string& text) {
        const size_t begin = m_bytes.size();
        const int32_t guess = static_cast<int32_t>(text.size()) * 2 + 16;
        const int32_t length = Write(text, begin, guess);
        if (length > guess) {
            Write(text, begin, length);
        }
        m_bytes.resize(begin + static_cast<size_t>(length));
        m_ends.push_back(m_bytes.size());
    }

    bool Less(qint32 left, qint32 right) const {
        const auto [leftBegin, leftSize] = Range(left);
        const auto [rightBegin, rightSize] = Range(right);
        const int order =
            std::memcmp(&m_bytes[leftBegin], &m_bytes[rightBegin], std::min(leftSize, rightSize));
        return order != 0 ? order < 0 : leftSize < rightSize;
    }

private:
    /// The length of the whole key, which may be more than there is room for.
    int32_t Write(const std::u16string& text, size_t begin, int32_t room) {
        m_bytes.resize(begin + static_cast<size_t>(room));
        const int32_t length =
            ucol_getSortKey(SortingCollator(), text.data(), static_cast<int32_t>(text.size()),
                            &m_bytes[begin], room);
        if (length == 0) { // a failure: every key has at least the byte at its end
            throw RuntimeError(ErrorNumber::OutOfMemory);
        }
        return length;
    }

    std::pair<size_t, size_t> Range(qint32 index) const {
        const size_t i = static_cast<size_t>(index);
        const size_t begin = i == 0 ? 0 : m_ends[i - 1];
        return {begin, m_ends[i] - begin};
    }

    std::vector<uint8_t> m_bytes;
    std::vector<size_t> m_ends;
};

} // namespace

std::vector<qint32> SortedOrder(const std::vector<const QString*>& names, qint32 firstNumber) {
    SortKeys keys(names.size());
    std::u16string text;
    qint32 number = firstNumber;
    for (const QString* name : names) {
        const std::string digits = std::to_string(number++);
        text.assign(reinterpret_cast<const char16_t*>(name->utf16()),
                    static_cast<size_t>(name->size()));
        text.append(digits.begin(), digits.end());
        text.push_back(static_cast<char16_t>(u'0' + digits.size()));
        keys.Add(text);
    }

    std::vector<qint32> order(names.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(),
                     [&keys](qint32 left, qint32 right) { return keys.Less(left, right); });
    return order;
}
