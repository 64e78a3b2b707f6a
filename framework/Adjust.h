#pragma once

// Fitting controls to labels that have changed, for example with the language. The control's
// window must be locked when it is in one.

class BButton;
class BCheckBox;
class BMenuField;
class BRadioButton;
class BStringView;
class BTextControl;

/// The width a window needs for its title to be read whole beside what the desktop puts there.
float width_for_title(const char* title);

// The control gets the width it prefers, raised to a whole number; its height stays.
void adjust_button_width(BButton* button);
void adjust_cbox_width(BCheckBox* box);
void adjust_rbutton_width(BRadioButton* button);
void adjust_strview_width(BStringView* view);

// The field starts where the label ends and a little space has followed it.
void adjust_txtctrl_divider(BTextControl* control);
void adjust_mfield_divider(BMenuField* field);
