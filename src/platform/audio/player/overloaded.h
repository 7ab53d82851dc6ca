// Several lambdas as one visitor of a variant: `std::visit(Overloaded{...}, variant)`.
#pragma once

template<typename... Calls>
struct Overloaded : Calls... {
    using Calls::operator()...;
};

// Some compilers don't guess it for an aggregate.
template<typename... Calls>
Overloaded(Calls...) -> Overloaded<Calls...>;
