#include "framework/HintedLabels.h"

#include "framework/Accelerator.h"

#include <locale/Locale.h>

THintedLabels::THintedLabels() : fFormat(accelerator_key_format()) {}

std::string THintedLabels::operator()(const char* key, const char* letter) const {
    return merge_accelerator_key(fFormat, letter, be_locale->GetString(key));
}

char THintedLabels::Trigger(const char* letter) const {
    return fFormat.find('a') == std::string::npos ? letter[0] : '\0';
}
