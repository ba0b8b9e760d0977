#include "text/SStringCase_p.hpp"
#include "text/SString_p.hpp"

namespace vesk {
namespace {

std::atomic<locale_t> g_caseLocale{locale_t(0)};

} // namespace

void SString::SetLocale(void* locale)
{
    g_caseLocale.store(static_cast<locale_t>(locale), std::memory_order_release);
}

locale_t SStringCaseLocale() noexcept
{
    return g_caseLocale.load(std::memory_order_acquire);
}

} // namespace vesk
