#pragma once

// Files: path values (DirEntry) and file status (FileStat).
#include <vesk/files/DirEntry.hpp>
#include <vesk/files/FileStat.hpp>
