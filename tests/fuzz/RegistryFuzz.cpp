#include "platform/SettingsStore.h"

#include <cstdlib>

/// Whatever lies under the settings file's name, it is read without a failure, and names can be looked up.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size) {
    const auto keys = platform::ParseRegistryText(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    for (auto key = keys.begin(); key != keys.end(); ++key) {
        if (key.key().isEmpty() || key.key() != key.key().toLower()) {
            std::abort();
        }
        for (auto value = key->begin(); value != key->end(); ++value) {
            const bool isDoubleWord = value->type == platform::RegistryType::DoubleWord;
            if (value.key() != value.key().toLower() ||
                (!isDoubleWord && value->bytes.size() > static_cast<qsizetype>(2 * size) + 1)) {
                std::abort();
            }
        }
    }
    return 0;
}
