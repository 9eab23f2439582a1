#include "language/BuiltInTexts.h"

namespace tellwick {

namespace {

constexpr BuiltInTextEntry texts[] = {
    {u"Messages", u"Debug1",
     u"Tellwick schreibt ein Protokoll seiner Arbeit in die Datei\r\r%f\r\rDas Protokoll hilft bei "
     u"der Fehlersuche, macht Outlook aber langsamer.%e"},
    {u"Messages", u"Debug2",
     u"Tellwick schreibt ein Protokoll seiner Arbeit. Das hilft bei der Fehlersuche, macht Outlook "
     u"aber langsamer.\r\rSoll das Protokoll eingeschaltet bleiben?"},
    {u"Messages", u"Msg52",
     u"Möchten Sie die Liste der zuletzt verwendeten Rufnummern wirklich löschen?"},
    {u"Messages", u"Msg60",
     u"Die Profildatei\r\r%f\r\rwurde nicht gefunden. Tellwick verwendet die "
     u"Standardeinstellungen."},
    {u"Messages", u"Msg126",
     u"Tellwick läuft, ist aber ausgeschaltet.\r\rMöchten Sie Tellwick einschalten, damit Ihre SMS "
     u"gesendet werden?"},
    {u"Messages", u"Msg127",
     u"Tellwick läuft nicht.\r\rMöchten Sie Tellwick starten, damit Ihre SMS gesendet werden?"},
    {u"Messages", u"Msg138",
     u"Für Ihre Sprache gibt es keine Hilfe zu %m. Es wird die englische Hilfe geöffnet."},
    {u"Messages", u"Msg232",
     u"Auf diesem Computer ist Kaspersky Anti-Virus installiert. Der Virenscanner kann Outlook "
     u"stark verlangsamen, während Tellwick ein Protokoll schreibt."},
    {u"Messages", u"DoNotAskAgain", u"Nicht mehr &nachfragen"},
    {u"Messages", u"DoNotShowAgain", u"Diese Meldung nicht mehr &anzeigen"},
    {u"Messages", u"OK", u"OK"},
    {u"Messages", u"Cancel", u"Abbrechen"},
    {u"Misc", u"Default", u"Standard"},
    {u"TellwickOutlookAddIn", u"ButtonSMS", u"Neue SMS"},
    {u"TellwickOutlookAddIn", u"ButtonSMS.ToolTip",
     u"Eine SMS schreiben. Ausgewählte Kontakte und Absender werden zu Empfängern."},
    {u"TellwickOutlookAddIn", u"RibbonGroup", u"SMS"},
    {u"TellwickOutlookAddIn", u"RibbonReply", u"Per SMS antworten"},
    {u"TellwickOutlookAddIn", u"RibbonReply.ToolTip",
     u"Dem Absender dieser Nachricht eine SMS schreiben"},
    {u"TellwickOutlookAddIn", u"RibbonContact", u"SMS an diesen Kontakt"},
    {u"TellwickOutlookAddIn", u"RibbonContact.ToolTip", u"Diesem Kontakt eine SMS schreiben"},
    {u"FormSmsSend", u"Caption", u"Corvane - SMS erstellen"},
    {u"FormSmsSend", u"ButtonTo", u"A&n:"},
    {u"FormSmsSend", u"ButtonTo.ToolTip", u"Empfänger aus den Outlook-Kontakten auswählen"},
    {u"FormSmsSend", u"CheckFlash", u"Fl&ash SMS"},
    {u"FormSmsSend", u"CheckFlash.ToolTip",
     u"Die SMS erscheint beim Empfänger sofort auf dem Display"},
    {u"FormSmsSend", u"CheckLong", u"concatenate"},
    {u"FormSmsSend", u"CheckLong.ToolTip",
     u"Das Telefon des Empfängers setzt die Teile einer langen SMS wieder zusammen"},
    {u"FormSmsSend", u"FrameOptions", u"Optionen"},
    {u"FormSmsSend", u"CheckStatus", u"Stat&us-Report"},
    {u"FormSmsSend", u"CheckStatus.ToolTip", u"Melden, wann die SMS beim Empfänger angekommen ist"},
    {u"FormSmsSend", u"LabelExpires", u"&Gültigkeit:"},
    {u"FormSmsSend", u"BoxExpires.ToolTip",
     u"Wie lange das Netz die SMS zuzustellen versucht; leer: so lange es mag"},
    {u"FormSmsSend", u"Minute", u"Minute"},
    {u"FormSmsSend", u"Minutes", u"Minuten"},
    {u"FormSmsSend", u"Hour", u"Stunde"},
    {u"FormSmsSend", u"Hours", u"Stunden"},
    {u"FormSmsSend", u"Day", u"Tag"},
    {u"FormSmsSend", u"Days", u"Tage"},
    {u"FormSmsSend", u"Week", u"Woche"},
    {u"FormSmsSend", u"Weeks", u"Wochen"},
    {u"FormSmsSend", u"CheckSendAndQuit", u"Nach dem Senden &schließen"},
    {u"FormSmsSend", u"CheckSetNumber", u"Eigene SMS-&Zentrale"},
    {u"FormSmsSend", u"LabelTo", u"Empfänger"},
    {u"FormSmsSend", u"LabelMessage", u"Nachricht"},
    {u"FormSmsSend", u"LabelTextbausteine", u"Textbaustein"},
    {u"FormSmsSend", u"LabelProgress", u"Fortschritt"},
    {u"FormSmsSend", u"LabelNumbers", u"Passende Kontakte"},
    {u"FormSmsSend", u"FrameTextbausteine", u"Textbausteine"},
    {u"FormSmsSend", u"ButtonAdd", u"&Hinzufügen"},
    {u"FormSmsSend", u"ButtonAdd.ToolTip", u"Den eingegebenen Text als Textbaustein aufnehmen"},
    {u"FormSmsSend", u"ButtonDel", u"&Löschen"},
    {u"FormSmsSend", u"ButtonDel.ToolTip", u"Den ausgewählten Textbaustein löschen"},
    {u"FormSmsSend", u"ButtonInsert", u"Ein&fügen"},
    {u"FormSmsSend", u"ButtonInsert.ToolTip",
     u"Den ausgewählten Textbaustein in die Nachricht einfügen"},
    {u"FormSmsSend", u"ButtonSend", u"SMS senden"},
    {u"FormSmsSend", u"ButtonStore", u"SMS speichern"},
    {u"FormSmsSend", u"ButtonOK", u"&Ende"},
    {u"FormSmsSend", u"ButtonOptions", u"Eins&tellungen"},
    {u"FormSmsSend", u"ButtonOptions.ToolTip",
     u"Rufnummern, Vorwahlen, Schrift, Sprache und Protokoll einstellen"},
    {u"FormSmsSend", u"ButtonHelp", u"H&ilfe"},
    {u"FormSmsSend", u"ButtonHelp.ToolTip", u"Das Handbuch öffnen (F1)"},
    {u"FormSmsSend", u"ButtonExpand", u"E&rweitern >>"},
    {u"FormSmsSend", u"ButtonExpand.On", u"Ve&rkleinern <<"},
    {u"FormSmsSend", u"ButtonExpand.ToolTip", u"Die Textbausteine ein- oder ausblenden"},
    {u"FormSmsSend", u"ButtonBar1.Send", u"SMS senden (Strg+Eingabe)"},
    {u"FormSmsSend", u"ButtonBar1.Store", u"SMS speichern"},
    {u"FormSmsSend", u"ButtonBar1.Template", u"Textbausteine"},
    {u"FormSmsSend", u"ButtonBar1.Hex", u"Hexadezimale Anzeige"},
    {u"FormSmsSend", u"ButtonBar1.Options", u"Einstellungen"},
    {u"FormSmsSend", u"ButtonBar1.Help", u"Hilfe (F1)"},
    {u"FormSmsSend", u"ButtonHex", u"Hex"},
    {u"FormSmsSend", u"ButtonHex.On", u"Text"},
    {u"FormSmsSend", u"ButtonHex.ToolTip",
     u"Den Text als hexadezimale Zeichencodes anzeigen oder zurückwandeln"},
    {u"FormSmsSend", u"ButtonUcs2", u"Unicode"},
    {u"FormSmsSend", u"ButtonUcs2.On", u"ANSI"},
    {u"FormSmsSend", u"ButtonUcs2.ToolTip",
     u"Zwei Bytes oder ein Byte je Zeichen in der hexadezimalen Anzeige"},
    {u"FormSmsSend", u"7", u"Zeichen: %n"},
    {u"FormSmsSend", u"MsgBox3", u"Bitte geben Sie einen Empfänger ein."},
    {u"FormSmsSend", u"MsgBox4", u"Bitte geben Sie einen Text ein."},
    {u"FormSmsSend", u"MsgBox12",
     u"Der Text ist länger als 160 Zeichen und wird auf mehrere SMS verteilt."},
    {u"FormSmsSend", u"ListClear", u"(Liste löschen)"},
    {u"FormSmsSend", u"Matches", u"%n Treffer"},
    {u"FormSmsSend", u"PrefixHint",
     u"Das „+“ einer Rufnummer wurde durch 0 ersetzt. Hier klicken, um Ihre Ländervorwahl "
     u"einzutragen."},
    {u"FormSmsSelectAddress", u"Caption", u"Corvane - Empfänger auswählen"},
    {u"FormSmsSelectAddress", u"LabelSearch", u"&Suchen:"},
    {u"FormSmsSelectAddress", u"ButtonAdd", u"&Hinzufügen"},
    {u"FormSmsSelectAddress", u"ButtonAdd.ToolTip",
     u"Den ausgewählten Eintrag als Empfänger übernehmen"},
    {u"FormSmsSelectAddress", u"ButtonOK", u"S&chließen"},
    {u"FormSmsSelectAddress", u"Matches", u"Einträge: %n"},
    {u"FormOptions", u"Caption", u"Corvane - Einstellungen"},
    {u"FormOptions", u"FrameNumbers", u"Zuletzt verwendete Rufnummern"},
    {u"FormOptions", u"CheckStoreNumbers", u"Verwendete Rufnummern &merken"},
    {u"FormOptions", u"LabelNumUsedNumber", u"&Anzahl (0 bis 10000):"},
    {u"FormOptions", u"FramePrefixes", u"Rufnummern in nationaler Form"},
    {u"FormOptions", u"LabelPrefixHelp",
     u"Rufnummern Ihrer Kontakte mit diesen Vorwahlen werden national mit 0 geschrieben: Mit +49 "
     u"wird aus +49170123 die Nummer 0170123. Solange das Feld leer ist, wird bei jeder Nummer das "
     u"„+“ durch 0 ersetzt: Aus +49170123 wird 049170123, was fast immer falsch ist. Mehrere "
     u"Vorwahlen trennen Sie durch Leerzeichen."},
    {u"FormOptions", u"LabelPrefixes", u"&Ländervorwahlen:"},
    {u"FormOptions", u"ButtonPrefix", u"&Vorschlag: +%n"},
    {u"FormOptions", u"FrameFont", u"Schrift der Nachricht"},
    {u"FormOptions", u"LabelFont", u"&Schriftart:"},
    {u"FormOptions", u"LabelFontSize", u"&Größe:"},
    {u"FormOptions", u"FrameLanguage", u"Sprache"},
    {u"FormOptions", u"LabelLanguage", u"S&prache:"},
    {u"FormOptions", u"LabelLanguageHelp",
     u"Eine andere Sprache gilt ab dem nächsten Start von Outlook."},
    {u"FormOptions", u"FrameMisc", u"Meldungen und Protokoll"},
    {u"FormOptions", u"CheckForgetAnswers", u"Ausgeblendete &Fragen und Hinweise wieder anzeigen"},
    {u"FormOptions", u"CheckTrace", u"P&rotokoll zur Fehlersuche schreiben"},
    {u"FormOptions", u"LabelTraceHelp",
     u"Das Protokoll macht Outlook langsamer. Wenn Sie es ausschalten, endet es mit dem nächsten "
     u"Start von Outlook."},
    {u"FormOptions", u"AsWindows", u"(wie Windows)"},
    {u"FormOptions", u"ButtonOK", u"OK"},
    {u"FormOptions", u"ButtonCancel", u"Abbrechen"},
};

}  // namespace

std::span<const BuiltInTextEntry> BuiltInTexts() {
    return texts;
}

TextView BuiltInText(TextView section, TextView key) {
    for (const BuiltInTextEntry& entry : texts) {
        if (entry.section == section && entry.key == key) return entry.text;
    }
    return {};
}

}  // namespace tellwick
