# What the windows are filled with in pictures and in the demo; sourced, not run.

# sampleOf LANGUAGE: a user of that country, sets
#   country, nation       what "Remove0InPrefixes" has there, and Windows' number of the country
#   recipient             a number as people there write it
#   message, preview      an SMS in letters that every keyboard types and that cost nothing, its
#                         lines; and one that takes two SMS for what its letters cost
#   template              of a text
#   mails, contacts       "sender|subject" and "name|mobile|home"
#   appointment           "subject|place"
sampleOf() {
    case $1 in
        Cesky)
            country=+999 nation=75 recipient='601 234 567' template='Zavolám za 10 minut.'
            message=('Ahoj Petro,' 'sejdeme se ve 20 hodin u kostela.')
            preview=('Ahoj Petro,'
                'vlak bude mít zpoždění, sejdeme se až ve čtvrt na devět před kinem na náměstí.')
            mails=('Petra Svobodová|Zápis z úterní porady' '+420601234567|SMS od +420601234567'
                'České dráhy|Vaše jízdenka')
            appointment='Zubař|Hlavní 5'
            contacts=('Jan Novák|+420 602 345 678|+420 224 123 456'
                'Petra Svobodová|+420 601 234 567|' 'Tomáš Dvořák|+420 777 123 456|')
            ;;
        Deutsch)
            country=+49 nation=94 recipient='0171 2345678'
            template='Ich komme 10 Minuten später.'
            message=('Schöne Grüße aus Köln,' 'wir freuen uns auf euch am Wochenende!')
            preview=('Schöne Grüße aus Köln,'
                'wir kommen am Samstag um acht – bis dahin alles Gute, eure Anna und Jörg')
            mails=('Anna Berger|Protokoll der Sitzung vom Dienstag'
                '+491701234567|SMS von +491701234567' 'Reisebüro|Ihre Fahrkarte')
            appointment='Zahnarzt|Hauptstraße 5'
            contacts=('Anna Berger|+49 171 2345678|' 'Jörg Müller|+49 170 1234567|+49 89 654321'
                'Sabine Krämer|+49 160 9876543|')
            ;;
        Espanol)
            country=+999 nation=217 recipient='612 345 678' template='Llego 10 minutos tarde.'
            message=('Hola Ana,' 'el tren llega a las ocho, nos vemos en la plaza.')
            preview=('Hola Ana,'
                'mañana llegaré a las ocho de la tarde, nos vemos en la estación. Recuerdos de María')
            mails=('Ana García|Acta de la reunión del martes' '+34612345678|SMS de +34612345678'
                'Agencia de viajes|Su billete')
            appointment='Dentista|Calle Mayor 5'
            contacts=('Ana García|+34 612 345 678|' 'José Martín|+34 623 456 789|+34 912 345 678'
                'María Núñez|+34 634 567 890|')
            ;;
        Francais)
            country=+33 nation=84 recipient='06 39 98 12 34'
            template='Je serai en retard de 10 minutes.'
            message=('Bonjour Anne,' "le train a 20 minutes de retard, merci de m'attendre !")
            preview=('Bonjour Anne,'
                'le train a vingt minutes de retard, nous serons bientôt là. Ça va être une belle fête !')
            mails=('Anne Lefèvre|Compte rendu de la réunion de mardi'
                '+33639981234|SMS de +33639981234' 'Agence de voyages|Votre billet')
            appointment='Dentiste|5, rue Principale'
            contacts=('Anne Lefèvre|+33 6 39 98 12 34|'
                'Hélène Garçon|+33 6 39 98 56 78|+33 1 99 00 12 34'
                'Jérôme Petit|+33 6 39 98 90 12|')
            ;;
        Nederlands)
            country=+31 nation=176 recipient='06 12345678' template='Ik ben 10 minuten later.'
            message=('Hoi Anna,' 'de trein is 20 minuten later, tot straks op het plein!')
            preview=('Hoi Anna,'
                'de trein is twintig minuten later – we zien elkaar om acht uur voor het café op het plein')
            mails=('Anna de Vries|Notulen van dinsdag' '+31612345678|Sms van +31612345678'
                'Reisbureau|Uw kaartje')
            appointment='Tandarts|Hoofdstraat 5'
            contacts=('Anna de Vries|+31 6 12345678|' 'Joost Bakker|+31 6 23456789|+31 20 7654321'
                'Zoë Visser|+31 6 34567890|')
            ;;
        Polski)
            country=+999 nation=191 recipient='512 345 678' template='Jestem na miejscu.'
            message=('Hej Aniu,' 'jestem w drodze, do zobaczenia o 20 w kinie!')
            preview=('Cześć Aniu,'
                'pociąg spóźni się o dwadzieścia minut, spotkajmy się o ósmej wieczorem przed kinem.')
            mails=('Anna Wiśniewska|Protokół z wtorkowego zebrania'
                '+48512345678|SMS od +48512345678' 'Biuro podróży|Twój bilet')
            appointment='Dentysta|ul. Główna 5'
            contacts=('Anna Wiśniewska|+48 512 345 678|'
                'Paweł Zieliński|+48 601 234 567|+48 22 765 43 21' 'Łukasz Wójcik|+48 698 765 432|')
            ;;
        Portugues-BR)
            country=+999 nation=32 recipient='11 91234-5678'
            template='Vou chegar 10 minutos atrasado.'
            message=('Oi Ana,' 'chego de carro daqui a 20 minutos, me espera na praia!')
            preview=('Oi Ana,'
                'o ônibus vai atrasar vinte minutos, então a gente se encontra amanhã às oito na estação.')
            mails=('Ana Conceição|Ata da reunião de terça-feira'
                '+5511912345678|SMS de +5511912345678' 'Agência de viagens|Sua passagem')
            appointment='Dentista|Rua Principal, 5'
            contacts=('Ana Conceição|+55 11 91234-5678|'
                'João Araújo|+55 21 98765-4321|+55 21 3456-7890' 'Luís Gonçalves|+55 31 99876-5432|')
            ;;
        *)
            country=+44 nation=242 recipient='07700 900123'
            template='I am running 10 minutes late.'
            message=('Hi Anna,' 'the train is 20 minutes late, see you at the station.')
            preview=('Hi Anna,'
                'the train is twenty minutes late – see you at eight in the café opposite the station')
            mails=("Anna Baker|Minutes of Tuesday's meeting" '+447700900123|SMS from +447700900123'
                'Travel Desk|Your ticket')
            appointment='Dentist|5 High Street'
            contacts=('Anna Baker|+44 7700 900123|' 'Joe Miller|+44 7700 900456|+44 20 7946 0123'
                'Sophie Clark|+44 7700 900789|')
            ;;
    esac
}
