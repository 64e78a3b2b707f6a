#include "framework/LocalText.h"

#include "framework/Version.h"

#include <locale/Locale.h>
#include <support/String.h>

std::string local_text_with(const char* key, const char* placeholder, const std::string& value) {
    BString text(be_locale->GetString(key));
    text.ReplaceAll(placeholder, value.c_str(), 0);
    return text.String();
}

std::string local_name(const std::string& name) {
    return name.empty() ? name : be_locale->GetString(name.c_str());
}

std::string local_text_with_app(const char* key) {
    return local_text_with(key, "%AppName%", local_name(kAppName));
}

std::string local_caption(const char* key) {
    std::string caption = be_locale->GetString(key);
    const std::string fullWidthColon = "\xEF\xBC\x9A";
    for (;;) {
        if (caption.ends_with(' ') || caption.ends_with(':'))
            caption.pop_back();
        else if (caption.ends_with(fullWidthColon))
            caption.resize(caption.size() - fullWidthColon.size());
        else
            return caption;
    }
}

TNamedLabel named_label(const std::string& viewName) {
    if (viewName.empty())
        return {};
    return {viewName.substr(0, 1), viewName.substr(1)};
}
