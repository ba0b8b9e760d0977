#pragma once

// Text: byte strings, wide strings, character sets and transcript settings.
#include <vesk/text/CharSet.hpp>
#include <vesk/text/TranscriptData.hpp>
