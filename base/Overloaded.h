// A visitor made of lambdas.
#pragma once

namespace clb {

/// Combines several function objects: std::visit(Overloaded{[](int) {...}, [](bool) {...}}, value).
template <class... Ts>
struct Overloaded : Ts... {
    using Ts::operator()...;
};
template <class... Ts>
Overloaded(Ts...) -> Overloaded<Ts...>;

}  // namespace clb
