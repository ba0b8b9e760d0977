#pragma once

// Locale formatting: International with its language and country records.
#include <vesk/locale/CountryTable.hpp>
#include <vesk/locale/International.hpp>
#include <vesk/locale/LanguageTable.hpp>
