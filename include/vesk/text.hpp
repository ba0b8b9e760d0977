#pragma once

// Text: byte strings, wide strings, character sets and transcript settings.
#include <vesk/text/CharSet.hpp>
#include <vesk/text/SString.hpp>
#include <vesk/text/TranscriptData.hpp>
#include <vesk/text/UString.hpp>
