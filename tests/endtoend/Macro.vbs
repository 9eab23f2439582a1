' Drives Outlook the way its users' macros do, from outside, and prints what it finds and does.
Option Explicit

Const olFolderInbox = 6
Const olYesNo = 6
Const olDiscard = 1
Const AddInProgId = "TellwickOutlookAddIn.Connect"

Dim outlook, explorer, addIn, button, mail, folder

Set outlook = CreateObject("Outlook.Application")
Set explorer = outlook.ActiveExplorer
WScript.Echo outlook & " " & Left(outlook.Version, InStr(outlook.Version, ".") - 1) & ", " & explorer

For Each folder In outlook.GetNamespace("MAPI").Folders("Personal Folders").Folders
    WScript.Echo "folder " & folder.Name & ": " & folder.Items.Count
Next

For Each addIn In outlook.COMAddIns
    WScript.Echo "add-in " & addIn.ProgId & ", " & addIn & ", connected: " & YesNo(addIn.Connect)
Next
ListControls

' The first mail is selected already.
Set mail = explorer.Selection(1)
Mark mail, True
WScript.Echo "selected: " & Answer(mail)
Mark mail, False
WScript.Echo "not marked: " & Answer(mail)

' Out and in again.
Set addIn = outlook.COMAddIns(AddInProgId)
addIn.Connect = False
WScript.Echo "taken out"
ListControls
addIn.Connect = True
WScript.Echo "put back"
ListControls

Set button = explorer.CommandBars.FindControl(, , "101")
WScript.Echo "found " & button
button.Execute
Set button = explorer.CommandBars("Standard").Controls(2)
WScript.Echo "executed " & button

' Each SMS gets a window of its own.
For Each mail In outlook.Session.GetDefaultFolder(olFolderInbox).Items
    If IsSms(mail) Then
        mail.Display
        WScript.Echo mail & " in a window: " & Answer(mail)
        outlook.ActiveInspector.Close olDiscard
    End If
Next
WScript.Echo "windows left: " & outlook.Explorers.Count & " + " & outlook.Inspectors.Count

outlook.Quit
WScript.Echo "quit"

Function YesNo(value)
    If value Then YesNo = "yes" Else YesNo = "no"
End Function

' The add-in's own controls, wherever they stand.
Sub ListControls
    Dim bar
    For Each bar In explorer.CommandBars
        ListControlsOf bar, bar.Name
    Next
End Sub

Sub ListControlsOf(bar, place)
    Dim control
    For Each control In bar.Controls
        If InStr(control.OnAction, AddInProgId) > 0 Then
            WScript.Echo place & ": " & control.Caption & ", tag " & control.Tag
        End If
        If control.Type = 10 Then ListControlsOf control, place & ", " & control
    Next
End Sub

Sub Mark(item, value)
    If item.UserProperties.Find("IsSMS") Is Nothing Then
        item.UserProperties.Add "IsSMS", olYesNo
    End If
    item.UserProperties("IsSMS") = value
    item.Save
End Sub

' Outlook 2000 raises an error for a name that is not there.
Function IsSms(item)
    Dim entry
    IsSms = False
    On Error Resume Next
    Set entry = item.UserProperties("IsSMS")
    If Err.Number = 0 Then
        If Not entry Is Nothing Then IsSms = entry.Value
    End If
End Function

' Replies, and tells whether Outlook's own window for the answer opens.
Function Answer(item)
    Dim before, reply
    before = outlook.Inspectors.Count
    Set reply = item.Reply
    If Not reply Is Nothing Then reply.Display
    If outlook.Inspectors.Count > before Then
        Answer = "mail to " & reply.To
        reply.Close olDiscard
    Else
        Answer = "no mail"
    End If
End Function
