#include "outlook/OutlookTexts.h"

#include <algorithm>
#include <array>

namespace tellwick::standin {

namespace {

using Row = std::array<TextView, 8>;

// The first row has the languages' names.
constexpr Row Rows[] = {
    {u"English", u"Cesky", u"Deutsch", u"Espanol", u"Francais", u"Nederlands", u"Polski",
     u"Portugues-BR"},
    // The menu.
    {u"&File", u"&Soubor", u"&Datei", u"&Archivo", u"&Fichier", u"&Bestand", u"&Plik", u"&Arquivo"},
    {u"&Edit", u"Ú&pravy", u"&Bearbeiten", u"&Edición", u"&Edition", u"Be&werken", u"&Edycja",
     u"&Editar"},
    {u"&View", u"&Zobrazit", u"&Ansicht", u"&Ver", u"&Affichage", u"Beel&d", u"&Widok", u"E&xibir"},
    {u"&Actions", u"&Akce", u"A&ktionen", u"Acc&iones", u"Ac&tions", u"A&cties", u"Akc&je",
     u"Açõe&s"},
    {u"New &Window", u"Nové &okno", u"Neues &Fenster", u"Nueva &ventana", u"Nouvelle &fenêtre",
     u"Nieuw &venster", u"Nowe &okno", u"Nova &janela"},
    {u"New &Mail Message", u"Nová &zpráva", u"Neue &E-Mail-Nachricht", u"&Mensaje nuevo",
     u"Nouveau &message", u"Nieuw e-&mailbericht", u"Nowa &wiadomość", u"Nova &mensagem"},
    {u"&Open Selected Item", u"Otevřít &vybranou položku", u"Ausgewähltes Element &öffnen",
     u"&Abrir elemento seleccionado", u"&Ouvrir l'élément sélectionné",
     u"Geselecteerd item &openen", u"&Otwórz wybrany element", u"&Abrir item selecionado"},
    {u"&Close Window", u"&Zavřít okno", u"Fenster &schließen", u"&Cerrar ventana",
     u"Fermer la fe&nêtre", u"Venster &sluiten", u"&Zamknij okno", u"&Fechar janela"},
    {u"&Close", u"&Zavřít", u"&Schließen", u"&Cerrar", u"&Fermer", u"&Sluiten", u"&Zamknij",
     u"&Fechar"},
    {u"E&xit", u"&Konec", u"&Beenden", u"&Salir", u"&Quitter", u"&Afsluiten", u"Za&kończ",
     u"&Sair"},
    {u"&Delete Item", u"&Odstranit", u"&Löschen", u"&Eliminar", u"&Supprimer", u"&Verwijderen",
     u"&Usuń", u"&Excluir"},
    {u"Ctrl", u"Ctrl", u"Strg", u"Ctrl", u"Ctrl", u"Ctrl", u"Ctrl", u"Ctrl"},
    // The toolbar, and the ribbon's buttons.
    {u"New", u"Nový", u"Neu", u"Nuevo", u"Nouveau", u"Nieuw", u"Nowy", u"Novo"},
    {u"Mail Message", u"Zpráva", u"E-Mail-Nachricht", u"Mensaje de correo", u"Message",
     u"E-mailbericht", u"Wiadomość e-mail", u"Mensagem de email"},
    {u"Appointment", u"Událost", u"Termin", u"Cita", u"Rendez-vous", u"Afspraak", u"Termin",
     u"Compromisso"},
    {u"Contact", u"Kontakt", u"Kontakt", u"Contacto", u"Contact", u"Contactpersoon", u"Kontakt",
     u"Contato"},
    {u"New E-mail", u"Nový e-mail", u"Neue E-Mail-Nachricht", u"Nuevo mensaje de correo",
     u"Nouveau message électronique", u"Nieuwe e-mail", u"Nowa wiadomość e-mail", u"Novo Email"},
    {u"New Appointment", u"Nová událost", u"Neuer Termin", u"Nueva cita", u"Nouveau rendez-vous",
     u"Nieuwe afspraak", u"Nowy termin", u"Novo Compromisso"},
    {u"New Contact", u"Nový kontakt", u"Neuer Kontakt", u"Nuevo contacto", u"Nouveau contact",
     u"Nieuwe contactpersoon", u"Nowy kontakt", u"Novo Contato"},
    {u"Open", u"Otevřít", u"Öffnen", u"Abrir", u"Ouvrir", u"Openen", u"Otwórz", u"Abrir"},
    {u"Print", u"Tisk", u"Drucken", u"Imprimir", u"Imprimer", u"Afdrukken", u"Drukuj", u"Imprimir"},
    {u"Delete", u"Odstranit", u"Löschen", u"Eliminar", u"Supprimer", u"Verwijderen", u"Usuń",
     u"Excluir"},
    {u"Reply", u"Odpovědět", u"Antworten", u"Responder", u"Répondre", u"Beantwoorden", u"Odpowiedz",
     u"Responder"},
    // The ribbon's tabs and groups.
    {u"Home", u"Domů", u"Start", u"Inicio", u"Accueil", u"Start", u"Narzędzia główne",
     u"Página Inicial"},
    {u"Message", u"Zpráva", u"Nachricht", u"Mensaje", u"Message", u"Bericht", u"Wiadomość",
     u"Mensagem"},
    {u"Add-Ins", u"Doplňky", u"Add-Ins", u"Complementos", u"Compléments", u"Invoegtoepassingen",
     u"Dodatki", u"Suplementos"},
    {u"Custom Toolbars", u"Vlastní panely nástrojů", u"Benutzerdefinierte Symbolleisten",
     u"Barras de herramientas personalizadas", u"Barres d'outils personnalisées",
     u"Aangepaste werkbalken", u"Niestandardowe paski narzędzi",
     u"Barras de Ferramentas Personalizadas"},
    {u"Respond", u"Odpovědět", u"Antworten", u"Responder", u"Répondre", u"Reageren",
     u"Odpowiadanie", u"Responder"},
    // Folders.
    {u"Personal Folders", u"Osobní složky", u"Persönliche Ordner", u"Carpetas personales",
     u"Dossiers personnels", u"Persoonlijke mappen", u"Foldery osobiste", u"Pastas particulares"},
    {u"Deleted Items", u"Odstraněná pošta", u"Gelöschte Objekte", u"Elementos eliminados",
     u"Éléments supprimés", u"Verwijderde items", u"Elementy usunięte", u"Itens Excluídos"},
    {u"&Inbox", u"&Doručená pošta", u"&Posteingang", u"&Bandeja de entrada", u"&Boîte de réception",
     u"&Postvak IN", u"&Skrzynka odbiorcza", u"Caixa de &Entrada"},
    {u"C&alendar", u"&Kalendář", u"&Kalender", u"&Calendario", u"C&alendrier", u"&Agenda",
     u"&Kalendarz", u"&Calendário"},
    {u"&Contacts", u"Ko&ntakty", u"K&ontakte", u"C&ontactos", u"&Contacts", u"&Contactpersonen",
     u"K&ontakty", u"C&ontatos"},
    // Their lists, and the heads of items.
    {u"From", u"Od", u"Von", u"De", u"De", u"Van", u"Od", u"De"},
    {u"To", u"Komu", u"An", u"Para", u"À", u"Aan", u"Do", u"Para"},
    {u"Subject", u"Předmět", u"Betreff", u"Asunto", u"Objet", u"Onderwerp", u"Temat", u"Assunto"},
    {u"Location", u"Místo", u"Ort", u"Ubicación", u"Emplacement", u"Locatie", u"Lokalizacja",
     u"Local"},
    {u"Name", u"Jméno", u"Name", u"Nombre", u"Nom", u"Naam", u"Nazwa", u"Nome"},
    {u"Full Name", u"Celé jméno", u"Name", u"Nombre completo", u"Nom complet", u"Volledige naam",
     u"Imię i nazwisko", u"Nome completo"},
    {u"Mobile Phone", u"Mobilní telefon", u"Mobiltelefon", u"Teléfono móvil", u"Tél. mobile",
     u"Mobiele telefoon", u"Telefon komórkowy", u"Telefone celular"},
    {u"Home Phone", u"Telefon domů", u"Telefon privat", u"Teléfono particular", u"Tél. domicile",
     u"Telefoon thuis", u"Telefon domowy", u"Telefone residencial"},
    {u"Business Phone", u"Telefon do zaměstnání", u"Telefon geschäftlich", u"Teléfono del trabajo",
     u"Tél. bureau", u"Telefoon werk", u"Telefon służbowy", u"Telefone comercial"},
    {u"%n Items", u"Položky: %n", u"%n Elemente", u"Elementos: %n", u"Éléments : %n", u"%n items",
     u"Elementy: %n", u"%n Itens"}};

constexpr bool Complete() {
    return std::ranges::all_of(
        Rows, [](const Row& row) { return std::ranges::none_of(row, &TextView::empty); });
}
static_assert(Complete(), "a text is missing in one of the languages");

Text WithoutAccessKey(TextView text) {
    Text plain(text);
    std::erase(plain, u'&');
    return plain;
}

}  // namespace

bool OutlookTexts::Speak(TextView language) {
    const auto found = std::ranges::find(Rows[0], language);
    if (found == Rows[0].end()) return false;
    column = std::size_t(found - Rows[0].begin());
    return true;
}

Text OutlookTexts::operator()(TextView english) const {
    // A key, "Ctrl+N".
    for (const char16_t separator : {u'\t', u'+'}) {
        const std::size_t at = english.find(separator);
        if (at == TextView::npos) continue;
        return (*this)(english.substr(0, at)) + separator + (*this)(english.substr(at + 1));
    }
    const Text wanted = WithoutAccessKey(english);
    const auto found = std::ranges::find_if(
        Rows, [&](const Row& row) { return WithoutAccessKey(row[0]) == wanted; });
    if (found == std::end(Rows)) return Text(english);
    const TextView text = (*found)[column];
    // Where the English one has none, as on a ribbon.
    return english.find(u'&') == TextView::npos ? WithoutAccessKey(text) : Text(text);
}

}  // namespace tellwick::standin
