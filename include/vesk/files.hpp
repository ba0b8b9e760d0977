#pragma once

// Files: configuration (profile) files, path values (DirEntry), file status (FileStat) and
// wildcard patterns for names (WildCard).
#include <vesk/files/Config.hpp>
#include <vesk/files/DirEntry.hpp>
#include <vesk/files/FileStat.hpp>
#include <vesk/files/WildCard.hpp>
