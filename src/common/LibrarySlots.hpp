#pragma once

// Objects of the library state that lower families read. The library state sits above text and
// values, so it publishes a source function at start and withdraws it at exit instead of those
// families calling up into it.
namespace vesk {
class TranscriptData;
}

namespace vesk::detail {

using TranscriptSource = const TranscriptData* (*)();

// Sets (or, with null, clears) the function that yields the current transcript data.
void PublishTranscriptSource(TranscriptSource source) noexcept;
// The current transcript data; null while no library state publishes one.
const TranscriptData* PublishedTranscriptData() noexcept;

} // namespace vesk::detail
