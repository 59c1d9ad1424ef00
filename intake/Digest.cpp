#include "intake/Digest.h"

#include <openssl/evp.h>

#include <array>

#include "base/RuntimeError.h"

namespace clb {

std::string Sha256(std::string_view bytes)
{
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned int length = 0;
    if (EVP_Digest(bytes.data(), bytes.size(), digest.data(), &length, EVP_sha256(), nullptr) != 1)
        throw RuntimeError(errors::InvalidCall, "The digest of a file cannot be computed.");
    static constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    for (unsigned int i = 0; i < length; ++i) {
        text += kDigits[digest[i] >> 4U];
        text += kDigits[digest[i] & 15U];
    }
    return text;
}

}  // namespace clb
