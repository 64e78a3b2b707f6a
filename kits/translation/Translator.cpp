#include <translation/Translator.h>

BTranslator* BTranslator::Acquire() {
    fReferences.fetch_add(1, std::memory_order_relaxed);
    return this;
}

BTranslator* BTranslator::Release() {
    if (fReferences.fetch_sub(1, std::memory_order_acq_rel) > 1)
        return this;
    delete this;
    return nullptr;
}
