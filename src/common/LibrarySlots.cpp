#include "common/LibrarySlots.hpp"

#include <atomic>

namespace vesk::detail {

namespace {

std::atomic<TranscriptSource> g_transcriptSource{nullptr};

} // namespace

void PublishTranscriptSource(TranscriptSource source) noexcept
{
    g_transcriptSource.store(source, std::memory_order_release);
}

const TranscriptData* PublishedTranscriptData() noexcept
{
    const TranscriptSource source = g_transcriptSource.load(std::memory_order_acquire);
    return source ? source() : nullptr;
}

} // namespace vesk::detail
