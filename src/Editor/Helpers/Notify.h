#pragma once

/// Stores \a value in \a field and emits \a changed on \a object, only when the value is new.
template <typename Object, typename T, typename Signal>
void assignAndNotify(Object* object, T& field, const T& value, Signal changed)
{
    if (field == value)
        return;
    field = value;
    emit(object->*changed)();
}
