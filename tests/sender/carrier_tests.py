#!/usr/bin/env python3
"""What carriers do to the sender: faults of a modem, many SMS, code pages, a gateway that is full."""

import os
import shutil
import subprocess
import tempfile
import time
import types
import unittest
from unittest import mock

import sender_tests
from machine import BIN, ROOT, Kannel, wait_until
from modems import Modem


class TheModemItself(unittest.TestCase):
    def test_a_program_of_others_sends_through_it(self):
        folder = tempfile.mkdtemp(prefix='tellwick-modem')
        self.addCleanup(shutil.rmtree, folder)
        modem = Modem(types.SimpleNamespace(devices=folder, folder=folder))
        self.addCleanup(modem.close)
        with open(f'{folder}/rc', 'w', encoding='ascii') as file:
            file.write(f'[gammu]\ndevice={modem.link}\nconnection=at\n')
        texts = ['Gr\u00fc\u00dfe', 'abc ' * 50, '\u041f\u0440\u0438\u0432\u0435\u0442']
        for text, kind in zip(texts, ([], ['-len', '400'], ['-unicode'])):
            subprocess.run(['gammu', '-c', f'{folder}/rc', 'sendsms', 'TEXT', '0171', *kind,
                            '-text', text], check=True, capture_output=True, timeout=60)
        self.assertEqual(sender_tests.joined(modem.received()),
                         sorted(('0171', text) for text in texts))


class FaultsOfAModem(sender_tests.ModemTest):
    def one_goes_out(self, *faults):
        windows = self.begin_with_modem(*faults)
        text = f'{faults} \u00e4\u20ac'
        windows.submit(('0171', text))
        self.sent(1, 60)
        self.assertEqual(self.texts(), [('0171', text)])

    def test_it_repeats_every_command(self):
        self.one_goes_out('echo 1')

    def test_it_says_garbage_between_its_answers(self):
        self.one_goes_out('garbage 00FF4A2C0D0A80')

    def test_it_says_what_nobody_asked(self):
        self.one_goes_out('noise +CREG: 1')

    def test_it_gives_no_answer_at_first(self):
        self.one_goes_out('mute 3')

    def test_the_network_refuses_for_now(self):
        self.one_goes_out('fail 331')


class ManySms(sender_tests.SenderTest):
    received = sender_tests.ThroughGateway.received

    def test_a_thousand_arrive_once_and_whole(self):
        self.kannel = Kannel()
        self.addCleanup(self.kannel.close)
        windows = self.begin(self.kannel.settings() | {'SMS': {'MaxSentSMS': 2000}})
        count = 1000
        subprocess.run(windows.command(BIN + 'fire.exe', 'queue', '0171', f'{count}'), check=True,
                       capture_output=True)
        self.kannel.start()
        windows.start('nocheck')
        start = time.monotonic()
        self.sent(count, 120)
        print(f'{count} SMS in {time.monotonic() - start:.1f} s')
        self.assertTrue(wait_until(lambda: len(self.received()) >= count, 60))
        self.assertEqual(sorted(int(text) for _, _, text in self.received()),
                         list(range(1, count + 1)))

    def arrives_in(self, country, text):
        """On a Windows of that country, whose code page the queue's files are in."""
        locales = f'{ROOT}/build/locales'
        os.makedirs(locales, exist_ok=True)
        if not os.path.isdir(f'{locales}/{country}.UTF-8'):
            subprocess.run(['localedef', '-i', country, '-f', 'UTF-8', f'{locales}/{country}.UTF-8'],
                           check=True)
        with mock.patch.dict(os.environ, LOCPATH=locales, TELLWICK_LOCALE=f'{country}.UTF-8'):
            self.kannel = Kannel(password='plain')
            self.addCleanup(self.kannel.close)
            windows = self.begin(self.kannel.settings())
            self.kannel.start()
            windows.start('nocheck')
            windows.submit(('0171', text))
            self.sent(1)
            windows.end()
        self.assertTrue(wait_until(self.received))
        self.assertEqual(self.received(), [('0171', '', text)])

    def test_cyrillic_letters_of_code_page_1251(self):
        self.arrives_in('ru_RU', '\u041f\u0440\u0438\u0432\u0435\u0442, \u0401\u043b\u043a\u0430')

    def test_all_letters_where_the_code_page_is_utf_8(self):
        self.arrives_in('hi_IN', '\u0939\u0948\u0902 \u0416 \U0001f600')

    def test_a_gateway_that_is_full_is_asked_again(self):
        self.kannel = Kannel('sms-outgoing-queue-limit = 5')
        self.addCleanup(self.kannel.close)
        windows = self.begin(self.kannel.settings())
        self.kannel.start(carrier=False)
        windows.start('nocheck')
        windows.submit(*(('0171', f'{number}') for number in range(20)))
        full = lambda: any(values.get('Reason') == 'Gateway' for values, _ in windows.spool('waiting'))
        self.assertTrue(wait_until(full))
        self.assertEqual(windows.count('failed'), 0)
        self.kannel.start_carrier()
        self.sent(20, 60)
        self.assertTrue(wait_until(lambda: len(self.received()) >= 20))
        self.assertEqual(sorted(int(text) for _, _, text in self.received()), list(range(20)))


if __name__ == '__main__':
    unittest.main()
