#pragma once

#include <csetjmp>
#include <type_traits>

namespace pixmo {

/// The one way in which libjpeg and libpng leave a failed call is a long jump. It passes over the library's
/// own frames and the call's, and nothing else: what runs under the guard owns nothing.
class JumpGuard {
public:
    /// False when the call was left by leave().
    template <typename Call>
    bool run(Call call) {
        static_assert(std::is_trivially_destructible_v<Call>, "a jump would skip its destructor");
        if (setjmp(mark_) != 0) // NOLINT(cert-err52-cpp): the libraries leave no other way
            return false;
        call();
        return true;
    }

    /// Only from inside the call of run().
    [[noreturn]] void leave() { std::longjmp(mark_, 1); } // NOLINT(cert-err52-cpp)

private:
    std::jmp_buf mark_{};
};

} // namespace pixmo
