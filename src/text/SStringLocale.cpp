#include "text/SStringCase_p.hpp"
#include "text/SString_p.hpp"

namespace vesk {
namespace {

std::atomic<locale_t> g_caseLocale{locale_t(0)};
std::atomic<uint64_t> g_caseGeneration{0};

} // namespace

void SString::SetLocale(void* locale)
{
    g_caseLocale.store(static_cast<locale_t>(locale), std::memory_order_release);
    g_caseGeneration.fetch_add(1, std::memory_order_acq_rel);
}

locale_t SStringCaseLocale(uint64_t* generation) noexcept
{
    if (generation)
        *generation = g_caseGeneration.load(std::memory_order_acquire);
    return g_caseLocale.load(std::memory_order_acquire);
}

} // namespace vesk
