#include "intake/Digest.h"

#include <openssl/evp.h>

#include <array>
#include <memory>

#include "base/RuntimeError.h"

namespace clb {
namespace {

/// Looked up once: short texts are digested by the hundred thousand.
class Sha256Function {
public:
    unsigned int Compute(std::string_view bytes, unsigned char* digest)
    {
        if (!function_)
            function_.reset(EVP_MD_fetch(nullptr, "SHA256", nullptr));
        if (!context_)
            context_.reset(EVP_MD_CTX_new());
        unsigned int length = 0;
        if (!function_ || !context_ ||
            EVP_DigestInit_ex2(context_.get(), function_.get(), nullptr) != 1 ||
            EVP_DigestUpdate(context_.get(), bytes.data(), bytes.size()) != 1 ||
            EVP_DigestFinal_ex(context_.get(), digest, &length) != 1)
            throw RuntimeError(errors::InvalidCall, "The digest of a file cannot be computed.");
        return length;
    }

private:
    std::unique_ptr<EVP_MD, decltype(&EVP_MD_free)> function_{nullptr, &EVP_MD_free};
    std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context_{nullptr, &EVP_MD_CTX_free};
};

}  // namespace

std::string Sha256(std::string_view bytes)
{
    static thread_local Sha256Function function;
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    const unsigned int length = function.Compute(bytes, digest.data());
    static constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    text.reserve(std::size_t{2} * length);
    for (unsigned int i = 0; i < length; ++i) {
        text += kDigits[digest[i] >> 4U];
        text += kDigits[digest[i] & 15U];
    }
    return text;
}

}  // namespace clb
