// The system menu of a window on the screen.
#pragma once

class QWidget;

namespace tessera {

class Form;

// Shows it at the pointer, above the widget of the form, and returns; what the person chooses is done then.
void PopUpSysMenu(Form& form, QWidget& widget);

}  // namespace tessera
