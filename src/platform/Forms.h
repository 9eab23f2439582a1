// Port: the program's own windows, and the collection of those that are loaded.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <vector>

#include "platform/Controls.h"
#include "platform/Text.h"

namespace tellwick {

// A form as the forms collection holds it.
class Form {
public:
    virtual ~Form() = default;
    // Runs the form's own unload step and takes its window away.
    virtual void Unload() = 0;
};

// The loaded forms in the order in which they were loaded.
class Forms {
public:
    std::int32_t Count() const { return std::int32_t(loaded.size()); }
    // Null when there is no form at the index.
    Form* Item(std::int32_t index) const {
        return index >= 0 && index < Count() ? loaded[std::size_t(index)] : nullptr;
    }
    void Add(Form& form) {
        if (std::find(loaded.begin(), loaded.end(), &form) == loaded.end()) loaded.push_back(&form);
    }
    void Remove(Form& form) { std::erase(loaded, &form); }

private:
    std::vector<Form*> loaded;
};

// Position and size of a window in pixels of the screen.
struct FormPlace {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

// The window behind a form. It can be loaded and unloaded any number of times.
class FormView {
public:
    virtual ~FormView() = default;

    // Creates the window with its controls, not yet visible. Nothing when it is loaded. False
    // when the system refuses it.
    virtual bool Load() = 0;
    virtual bool Loaded() const = 0;
    // Shows the window modeless and brings it to the front.
    virtual void Show() = 0;
    // Takes the window away. Nothing when it is not loaded.
    virtual void Unload() = 0;

    virtual FormPlace Place() const = 0;
    // The place to be shown at. A width or height of 0 or less is left to the window; without a
    // position, or where no screen is any more, it opens over the window it was called from. It is
    // kept on a screen and never below its least size.
    virtual void SetPlace(const FormPlace& place, bool positioned) = 0;
    virtual void SetCaption(TextView caption) = 0;

    // Every control that has a caption or a tool tip, with its name.
    virtual void ForEachControl(const std::function<void(TextView name, Control&)>& visit) = 0;
};

}  // namespace tellwick
