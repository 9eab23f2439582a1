// The controls of the SMS form.
#pragma once

#include <vector>

#include "windows/FormWindow.h"
#include "windows/WindowToolbar.h"

namespace tellwick::windows {

struct FormSmsSendControls {
    static constexpr int BarButtons = 6;
    static constexpr int FirstBarPicture = 11;

    WindowToolbar buttonBar1{BarButtons, FirstBarPicture, 2};
    WindowControl buttonTo;
    WindowComboBox textTo;
    WindowTextBox message;
    WindowControl frameOptions;
    WindowCheckBox checkFlash;
    WindowCheckBox checkStatus;
    WindowCheckBox checkLong;
    WindowControl labelExpires;
    WindowComboBox boxExpires;
    WindowCheckBox checkSendAndQuit;
    WindowCheckBox checkSetNumber;
    WindowControl buttonSend;
    WindowControl buttonStore;
    WindowControl buttonHex;
    WindowControl buttonUcs2;
    WindowControl buttonOptions;
    WindowControl buttonHelp;
    WindowControl buttonExpand;
    WindowControl buttonOK;
    WindowControl frameTextbausteine;
    WindowComboBox comboBoxTextbausteine;
    WindowControl buttonAdd;
    WindowControl buttonDel;
    WindowControl buttonInsert;
    WindowControl buttonFields;
    WindowLabel labelStatus;
    WindowProgressBar progressBar1;
    WindowStatusBar statusBar1;
    WindowListBox listBoxNumbers;
    // Never seen: a screen reader takes the label before a control for its name.
    WindowControl labelTo;
    WindowControl labelMessage;
    WindowControl labelTextbausteine;
    WindowControl labelProgress;
    WindowControl labelNumbers;

    // In the order of the tabulator key.
    std::vector<ControlPlan> Plan();
    // Those of the templates area.
    std::vector<WindowControl*> Templates();
};

}  // namespace tellwick::windows
