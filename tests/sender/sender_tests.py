#!/usr/bin/env python3
"""The sender as a program: what its users queue, and what gateway and modem get of it."""

import os
import subprocess
import time
import unittest
import urllib.parse

from machine import BIN, SENDER, Kannel, Windows, wait_until
from modems import Modem

# GSM, its extension characters, what only UCS-2 has, and five parts.
TEXTS = ['Sch\u00f6ne Gr\u00fc\u00dfe', 'zehn \u20ac {[~]}', 'Zitat: \u201ea\u201c \u00ea', 'abc \u00f6 ' * 115]


def joined(received):
    """Of each SMS its recipient and text: parts of one reference are one."""
    whole = {}
    for number, (recipient, header, text) in enumerate(received):
        whole.setdefault((recipient, header[:-4] if header else number), []).append(text)
    return sorted((key[0], ''.join(parts)) for key, parts in whole.items())


class SenderTest(unittest.TestCase):
    def begin(self, settings):
        self.windows = Windows(settings)
        self.addCleanup(self.windows.end, '/f')
        return self.windows

    def sent(self, count, seconds=20):
        self.assertTrue(wait_until(lambda: self.windows.count('sent') >= count, seconds),
                        self.windows.spool('waiting') + self.windows.spool('failed'))


class ThroughGateway(SenderTest):
    def setUp(self):
        self.kannel = Kannel()
        self.addCleanup(self.kannel.close)

    def received(self):
        """As the carrier shows it: UCS-2 and the parts' headers percent-encoded."""
        result = []
        for recipient, kind, text in self.kannel.received():
            header = ''
            if kind == 'udh':
                header, text = text.split(' data ', 1)
            if kind == 'text':
                text = text.encode('latin-1').decode('utf-8')
            else:
                shown = urllib.parse.unquote_to_bytes(text.replace('+', ' '))
                text = shown.decode('utf-16-be' if kind == 'ucs-2' else 'utf-8')
            result.append((recipient, header, text))
        return result

    def test_what_was_queued_is_what_the_carrier_gets(self):
        windows = self.begin(self.kannel.settings())
        self.kannel.start()
        windows.start('nocheck')
        self.assertEqual(windows.value('On'), '1')
        windows.submit(*(('0171 1234; +49 172 5', text) for text in TEXTS))
        self.sent(2 * len(TEXTS))
        wanted = [(to, text) for to in ('01711234', '+491725') for text in TEXTS]
        self.assertTrue(wait_until(lambda: len(joined(self.received())) == len(wanted)))
        self.assertEqual(joined(self.received()), sorted(wanted))
        parts = [text for to, header, text in self.received() if header and to == '01711234']
        self.assertEqual(len(parts), 5)
        # The password stands nowhere as it was written.
        self.assertNotIn('geheim', windows.settings())
        windows.end()
        self.assertEqual(windows.value('hWnd'), '0')

    def test_a_wrong_password_and_a_gateway_that_is_away_cost_no_sms(self):
        windows = self.begin(self.kannel.settings('falsch'))
        self.kannel.start()
        windows.start('nocheck')
        windows.submit(('0171', 'eins'))
        self.assertTrue(wait_until(lambda: windows.spool('waiting') and
                                   windows.spool('waiting')[0][0].get('Reason') == 'NotAllowed'))
        windows.write_settings(self.kannel.settings())
        windows.submit(('0171', 'zwei'))
        self.sent(2)

        self.kannel.stop()
        windows.submit(*(('0172', f'{number}') for number in range(100)))
        self.assertTrue(wait_until(lambda: windows.spool('waiting') and
                                   windows.spool('waiting')[0][0].get('Reason') == 'NoConnection'))
        self.kannel.start()
        # Stopped once more in the middle: one may be unsure then, and is sent no second time.
        self.assertTrue(wait_until(lambda: windows.count('sent') >= 20))
        self.kannel.stop()
        self.kannel.start()
        # The last one is in `sending` for a moment, too.
        self.assertTrue(wait_until(lambda: windows.count('waiting') == 0 and
                                   windows.count('sending') <= 1, 60))
        self.assertTrue(wait_until(
            lambda: windows.count('sent') + windows.count('sending') == 102))
        self.assertTrue(wait_until(lambda: len(self.received()) >= windows.count('sent')))
        texts = [text for _, _, text in self.received()]
        self.assertEqual(len(texts), len(set(texts)))

    def test_killed_again_and_again_it_sends_nothing_twice(self):
        windows = self.begin(self.kannel.settings())
        self.kannel.start()
        count = 200
        queued = subprocess.Popen(windows.command(BIN + 'fire.exe', 'queue', '0171', f'{count}'))
        kills = 0
        while windows.count('sent') + windows.count('sending') < count and kills < 40:
            windows.start('nocheck')
            time.sleep(0.1 * (kills % 4))
            windows.end('/f')
            kills += 1
            queued.poll()
        queued.wait(30)
        windows.start()
        self.assertTrue(wait_until(
            lambda: windows.count('sent') + windows.count('sending') == count, 60))
        unsure = windows.count('sending')
        print(f'{count} SMS, {kills} kills, {unsure} unsure')
        self.assertLessEqual(unsure, kills)
        self.assertTrue(wait_until(lambda: len(self.received()) >= windows.count('sent')))
        texts = [text for _, _, text in self.received()]
        self.assertEqual(len(texts), len(set(texts)))


class ModemTest(SenderTest):
    def begin_with_modem(self, *faults, pin='1234'):
        windows = self.begin({'Settings': {'ComPort': 'COM5', 'Baudrate': 115200},
                              'Sender': {'Pin': pin}})
        self.modem = Modem(windows)
        self.addCleanup(self.modem.close)
        for fault in faults:
            self.modem.play(fault)
        windows.start('nocheck')
        return windows

    def texts(self):
        # The decoder knows Latin-1, where the euro sign stands for another.
        return [(to, text.replace('\u00a4', '\u20ac')) for to, text in joined(self.modem.received())]


class ThroughModem(ModemTest):
    def test_what_was_queued_is_what_a_phone_gets(self):
        windows = self.begin_with_modem('pin 1234', 'noise ^RSSI: 20')
        windows.submit(*(('0171 1234; +49 172 5', text) for text in TEXTS))
        self.sent(2 * len(TEXTS), 40)
        wanted = [(to, text) for to in ('01711234', '+491725') for text in TEXTS]
        self.assertEqual(self.texts(), sorted(wanted))
        self.assertEqual(self.modem.lines('PIN'), ['1234'])

    def test_the_user_enters_the_pin_and_a_wrong_one_is_tried_once(self):
        windows = self.begin_with_modem('pin 1234', pin='')
        windows.submit(('0171', 'eins'))
        windows.end()
        windows.start()
        for pin in ('9999', '1234'):
            windows.press('Tellwick - PIN', *pin, 'Return')
            self.assertTrue(wait_until(lambda pin=pin: self.modem.lines('PIN')[-1:] == [pin], 10))
        self.sent(1)
        self.assertEqual(self.modem.lines('PIN'), ['9999', '1234'])
        # Kept, and not as it was typed.
        self.assertTrue(wait_until(lambda: 'PinEncrypted=' in windows.settings()))
        for plain in ('=1234', b'1234'.hex(), '1234'.encode('utf-16-le').hex()):
            self.assertNotIn(plain, windows.settings())

    def test_changed_settings_are_used_at_once_by_the_test_sms(self):
        windows = self.begin_with_modem()
        windows.end()
        windows.start()
        windows.press('Tellwick', 'alt+t')
        windows.press('Tellwick - Settings', 'alt+r', 'alt+n', *'0171', 'alt+t')
        self.sent(1)
        self.assertEqual(self.texts(), [('0171', 'This is a test SMS from Tellwick.')])
        self.assertIn('StatusReport=1', windows.settings())
        # The bit of its unit that asks for a report.
        self.assertTrue(int(self.modem.lines('SUBMIT')[0][2:4], 16) & 0x20)
        # What cannot be used is complained of, and stays.
        windows.press('Tellwick - Settings', 'Escape')
        windows.press('Tellwick', 'alt+t')
        windows.press('Tellwick - Settings', 'alt+c', 'Tab', 'x', 'Return')
        windows.press('Tellwick', 'Return')
        self.assertNotIn('ServiceCenter=x', windows.settings())
        windows.press('Tellwick - Settings', 'BackSpace', *'0172123', 'Return')
        self.assertTrue(wait_until(lambda: 'ServiceCenter=0172123' in windows.settings(), 5))

    def test_unplugged_at_any_moment_it_goes_on_with_what_did_not_leave(self):
        windows = self.begin_with_modem('fail 38')
        windows.submit(('0171', 'nicht gleich'))
        self.sent(1)
        self.modem.play('unplug')
        windows.submit(('0171', 'vorher'))
        self.modem.play('plug')
        self.sent(2)
        self.modem.play('cut 10')
        windows.submit(('0171', 'mittendrin'))
        self.assertTrue(wait_until(lambda: not os.path.lexists(self.modem.link)))
        self.modem.play('plug')
        windows.submit(('0171', 'nachher'))
        self.assertTrue(wait_until(lambda: ('0171', 'nachher') in self.texts()))
        texts = [text for _, text in self.texts()]
        self.assertEqual(len(texts), len(set(texts)))

    def test_what_failed_is_sent_again_when_the_user_says_so(self):
        windows = self.begin_with_modem('fail 21')
        windows.end()
        windows.start()
        windows.submit(('0171', 'noch einmal'), ('niemand', 'nie'))
        self.assertTrue(wait_until(lambda: windows.count('failed') == 2))
        windows.press('Tellwick', 'ctrl+a', 'alt+a')
        self.sent(1)
        self.assertEqual(self.texts(), [('0171', 'noch einmal')])
        windows.press('Tellwick', 'ctrl+a', 'Delete', 'Return')
        self.assertTrue(wait_until(lambda: windows.count('failed') + windows.count('sent') == 0))

    def test_what_arrives_is_kept_before_the_modem_forgets_it(self):
        windows = self.begin_with_modem()
        unit = '07911326040000F0040B911346610089F60000208062917314080CC8F71D14969741F977FD07'
        self.modem.play(f'receive {unit}')
        folder = f'{windows.folder}/Spool/received'
        self.assertTrue(wait_until(lambda: os.path.isdir(folder) and os.listdir(folder)))
        with open(f'{folder}/{os.listdir(folder)[0]}', encoding='ascii') as file:
            self.assertIn(unit, file.read())


class OneOnly(SenderTest):
    def test_another_start_has_the_first_one_look_and_ends(self):
        windows = self.begin({})
        windows.start('nocheck')
        handle = windows.value('hWnd')
        for words in (['nocheck'], []):
            windows.run(BIN + SENDER, *words)
            self.assertEqual(windows.value('hWnd'), handle)
        windows.end('/f')
        windows.start()
        self.assertNotIn(windows.value('hWnd'), (None, '0'))


if __name__ == '__main__':
    unittest.main()
