// Makes operations that can be called by name out of the program's own functions.
#pragma once
#include <functional>
#include <string_view>
#include <type_traits>

#include "app/clsIni.h"
#include "app/frmController.h"
#include "automation/CallArguments.h"

namespace clb {

/// An operation of the program. Takes the arguments of a call as a JSON array. Returns "result"
/// (null if it has none) and "args", the arguments after the call. Throws RequestError, and calls
/// nothing, if the arguments do not fit the operation's parameters.
using Operation = std::function<Json(frmController&, const Json& arguments)>;

/// The object of the running program whose member functions can be called.
template <class Object>
struct Receiver;
template <>
struct Receiver<frmController> {
    static frmController& In(frmController& controller) { return controller; }
};
template <>
struct Receiver<clsDatabase> {
    static clsDatabase& In(frmController& controller) { return controller.Data(); }
};
template <>
struct Receiver<clsView> {
    static clsView& In(frmController& controller) { return controller.View(); }
};
template <>
struct Receiver<CVGrid> {
    static CVGrid& In(frmController& controller) { return controller.Grid; }
};
template <>
struct Receiver<GridComponent> {
    static GridComponent& In(frmController& controller) { return controller.Grid; }
};
template <>
struct Receiver<modImport> {
    static modImport& In(frmController& controller) { return controller.Import(); }
};
template <>
struct Receiver<modExport> {
    static modExport& In(frmController& controller) { return controller.Export(); }
};
template <>
struct Receiver<clsIni> {
    static clsIni In(const frmController& controller)
    {
        clsIni settings;
        settings.INIFile(controller.SettingsFile());
        return settings;
    }
};

template <class Type>
concept IsReceiver = requires(frmController& controller)
{
    Receiver<Type>::In(controller);
};

/// Reads the arguments for a function of the Parameters and calls it with them.
template <class... Parameters, class Function>
Json CallWith(const Json& given, MayOmit omit, Function function)
{
    CallArguments<Parameters...> arguments(given, omit);
    using Result = decltype(arguments.Apply(function));
    Json result;
    if constexpr (std::is_void_v<Result>)
        arguments.Apply(function);
    else if constexpr (std::is_same_v<Result, Json>)
        result = arguments.Apply(function);
    else
        result = ToJson(Value(arguments.Apply(function)));
    return {{"result", std::move(result)}, {"args", arguments.ToJson()}};
}

/// An operation that calls a member function of its object in the program.
template <class Object, class Result, class... Parameters>
Operation Bind(Result (Object::*function)(Parameters...), MayOmit omit = {})
{
    return [function, omit](frmController& controller, const Json& given) {
        return CallWith<Parameters...>(given, omit, [&](auto&... arguments) -> Result {
            return (Receiver<Object>::In(controller).*function)(arguments...);
        });
    };
}

template <class Object, class Result, class... Parameters>
Operation Bind(Result (Object::*function)(Parameters...) const, MayOmit omit = {})
{
    return [function, omit](frmController& controller, const Json& given) {
        return CallWith<Parameters...>(given, omit, [&](auto&... arguments) -> Result {
            return (Receiver<Object>::In(controller).*function)(arguments...);
        });
    };
}

/// An operation that calls a function with an object of the program and the arguments.
template <IsReceiver Object, class Result, class... Parameters>
Operation Bind(Result (*function)(Object&, Parameters...), MayOmit omit = {})
{
    return [function, omit](frmController& controller, const Json& given) {
        return CallWith<Parameters...>(given, omit, [&](auto&... arguments) -> Result {
            auto&& object = Receiver<Object>::In(controller);
            return function(object, arguments...);
        });
    };
}

/// An operation that calls a function with the arguments only.
template <class Result, class... Parameters>
Operation Bind(Result (*function)(Parameters...), MayOmit omit = {})
{
    return [function, omit](frmController&, const Json& given) {
        return CallWith<Parameters...>(given, omit, function);
    };
}

}  // namespace clb
