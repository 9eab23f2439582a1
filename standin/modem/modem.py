#!/usr/bin/env python3
"""The stand-in modem: a GSM modem in PDU mode (3GPP TS 27.005 and 27.007) on a terminal of its own.

    modem.py LINK

The terminal's name becomes the target of LINK. Prints "SUBMIT UNIT" for each SMS that the network
has taken, and "NEXT MICROSECONDS" when another follows, since the answer to that one. Its faults come as lines on the standard input:

    pin 1234      the SIM asks for this PIN, three times
    network 0|1   registered in none, or again
    fail NUMBER   the next unit is refused with this CMS error, after which all is well
    lose          the next unit is taken, but no answer comes
    cut NUMBER    is unplugged once so many characters of the next unit have come
    noise TEXT    says so, unasked, before each answer
    echo 1        repeats every command, whatever it is told
    garbage TEXT  puts these bytes, in hexadecimal digits, before each answer
    mute NUMBER   so many commands get no answer
    receive UNIT  an SMS arrives: an SMS-DELIVER in hexadecimal digits, service centre first
    answer TEXT   an SMS arrives from the phone that the unit went to that it took last
    report NUMBER the network says what became of the unit that it took last
    unplug, plug  the cable
"""

import os
import re
import select
import sys
import time
import tty

CTRL_Z = 0x1A
ESCAPE = 0x1B
TIME = '62112231700004'  # 2026-11-22 13:07:00, an hour ahead of the universal time

# What other programs ask of a modem before they send.
ABOUT = {
    'AT+CGMI': ['Stand-in'],
    'AT+CGMM': ['Modem'],
    'AT+CGMR': ['1'],
    'AT+CGSN': ['490154203237518'],
    'AT+CSCS=?': ['+CSCS: ("GSM")'],
    'AT+CSCS?': ['+CSCS: "GSM"'],
    'AT+CSCS="GSM"': [],
    'AT+CMGF=?': ['+CMGF: (0)'],
    'AT+CMGF?': ['+CMGF: 0'],
    'AT+CPMS=?': ['+CPMS: ("SM"),("SM"),("SM")'],
    'AT+CSCA?': ['+CSCA: "+491710760000",145'],
}


class Modem:
    def __init__(self, link):
        self.link = link
        self.master = None
        self.pin = None
        self.tries = 3
        self.registered = True
        self.answered = None  # when the last unit was
        self.failure = None
        self.lost = False
        self.cut = None
        self.noise = ''
        self.stubborn = False
        self.garbage = b''
        self.mute = 0
        self.stored = {}
        self.reference = 0
        self.taken = ''
        self.plug()

    def plug(self):
        if self.master is not None:
            return
        self.master, self.slave = os.openpty()
        tty.setraw(self.slave)
        self.echo = True
        self.errors = 0
        self.buffer = b''
        self.length = None  # of the unit that is to come
        if os.path.lexists(self.link):
            os.remove(self.link)
        os.symlink(os.ttyname(self.slave), self.link)

    def unplug(self):
        if self.master is None:
            return
        os.remove(self.link)
        os.close(self.slave)
        os.close(self.master)
        self.master = None

    def say(self, *lines):
        for line in lines:
            os.write(self.master, f'\r\n{line}\r\n'.encode())

    def answer(self, *lines):
        os.write(self.master, self.garbage)
        if self.noise:
            self.say(self.noise)
        self.say(*lines)

    def fail(self, kind, number):
        self.answer(f'+{kind} ERROR: {number}' if self.errors else 'ERROR')

    def take(self, data):
        for byte in data:
            if self.master is None:
                return
            if self.length is not None:
                self.take_unit(byte)
            elif byte in b'\r':
                if self.echo:
                    os.write(self.master, self.buffer + b'\r')
                command, self.buffer = self.buffer.decode('latin-1').strip(), b''
                if command and self.mute:
                    self.mute -= 1
                elif command:
                    self.command(command)
            elif byte not in b'\n':
                self.buffer += bytes([byte])

    def take_unit(self, byte):
        if byte == ESCAPE:
            self.length, self.buffer = None, b''
            self.answer('OK')
        elif byte != CTRL_Z:
            self.buffer += bytes([byte])
            if self.cut is not None and len(self.buffer) >= self.cut:
                self.cut = None
                self.unplug()
        else:
            unit, self.buffer = self.buffer.decode('latin-1').strip(), b''
            length, self.length = self.length, None
            self.submit(unit, length)

    def submit(self, unit, length):
        octets = len(unit) // 2
        right = re.fullmatch('([0-9A-Fa-f]{2})+', unit) and octets - 1 - int(unit[:2], 16) == length
        if not right:
            self.fail('CMS', 304)
        elif self.failure is not None:
            number, self.failure = self.failure, None
            self.fail('CMS', number)
        else:
            self.reference = (self.reference + 1) % 256
            self.taken = unit
            print('SUBMIT', unit, flush=True)
            if self.lost:
                self.lost = False
                return
            self.answer(f'+CMGS: {self.reference}', 'OK')
            self.answered = time.monotonic()

    def command(self, line):
        name = line.upper()
        if name.startswith('AT+CMGS=') and self.answered is not None:
            print('NEXT', round(1e6 * (time.monotonic() - self.answered)), flush=True)
            self.answered = None
        needs_sim = ('AT+CMG', 'AT+CREG', 'AT+CNMI', 'AT+CSQ')
        if name in ABOUT:
            self.answer(*ABOUT[name], 'OK')
        elif name.startswith(needs_sim) and self.pin is not None and name != 'AT+CMGF=0':
            self.fail('CME', 11)
        elif name in ('AT', 'ATZ'):
            self.answer('OK')
        elif name in ('ATE0', 'ATE1'):
            self.echo = self.stubborn or name == 'ATE1'
            self.answer('OK')
        elif name.startswith('AT+CMEE='):
            self.errors = int(name[8:])
            self.answer('OK')
        elif name == 'AT+CPIN?':
            state = 'READY' if self.pin is None else 'SIM PIN' if self.tries else 'SIM PUK'
            self.answer(f'+CPIN: {state}', 'OK')
        elif name.startswith('AT+CPIN='):
            self.enter_pin(name[8:].strip('"'))
        elif name == 'AT+CREG?':
            self.answer(f'+CREG: 0,{1 if self.registered else 2}', 'OK')
        elif name == 'AT+CSQ':
            self.answer('+CSQ: 21,99', 'OK')
        elif name == 'AT+CMGF=0' or name.startswith('AT+CNMI='):
            self.answer('OK')
        elif name == 'AT+CMGL=4':
            lines = []
            for index, unit in sorted(self.stored.items()):
                lines += [f'+CMGL: {index},0,,{len(unit) // 2 - 1 - int(unit[:2], 16)}\r\n{unit}']
            self.answer(*lines, 'OK')
        elif name.startswith('AT+CMGR='):
            unit = self.stored.get(int(name[8:]))
            if unit:
                self.answer(f'+CMGR: 0,,{len(unit) // 2 - 1 - int(unit[:2], 16)}\r\n{unit}', 'OK')
            else:
                self.fail('CMS', 321)
        elif name.startswith('AT+CMGD='):
            self.stored.pop(int(name[8:].split(',')[0]), None)
            self.answer('OK')
        elif name.startswith('AT+CPMS='):
            self.answer('+CPMS: 0,20,0,20,0,20', 'OK')
        elif re.fullmatch(r'AT\+CMGS=\d+', name):
            self.length = int(name[8:])
            os.write(self.master, b'\r\n> ')
        else:
            self.fail('CME', 4)

    def enter_pin(self, pin):
        print('PIN', pin, flush=True)
        if self.pin == pin and self.tries:
            self.pin, self.tries = None, 3
            self.answer('OK')
        else:
            self.tries = max(0, self.tries - 1)
            self.fail('CME', 16 if self.tries else 12)

    def recipient(self):
        """Of the last unit: length, type and digits of its address."""
        header = 2 + 2 * int(self.taken[:2], 16)
        digits = int(self.taken[header + 4:header + 6], 16)
        return self.taken[header + 4:header + 8 + (digits + 1) // 2 * 2]

    def report(self, status):
        """A status report on the last unit (3GPP TS 23.040, 9.2.2.3)."""
        unit = f'06{self.reference:02X}{self.recipient()}{2 * TIME}{status:02X}'
        self.say(f'+CDS: {len(unit) // 2}\r\n00{unit}')

    def receive(self, unit):
        index = max(self.stored, default=0) + 1
        self.stored[index] = unit
        if self.master is not None:
            self.say(f'+CMTI: "SM",{index}')

    def answer_with(self, text):
        """An SMS-DELIVER in UCS-2 (3GPP TS 23.040, 9.2.2.1)."""
        data = text.encode('utf-16-be')
        self.receive(f'0004{self.recipient()}0008{TIME}{len(data):02X}{data.hex().upper()}')

    def play(self, line):
        what, _, value = line.strip().partition(' ')
        if what == 'pin':
            self.pin, self.tries = value, 3
        elif what == 'network':
            self.registered = value == '1'
        elif what == 'fail':
            self.failure = int(value)
        elif what == 'lose':
            self.lost = True
        elif what == 'cut':
            self.cut = int(value)
        elif what == 'noise':
            self.noise = value
        elif what == 'echo':
            self.stubborn = self.echo = value == '1'
        elif what == 'garbage':
            self.garbage = bytes.fromhex(value)
        elif what == 'mute':
            self.mute = int(value)
        elif what == 'receive':
            self.receive(value)
        elif what == 'answer':
            self.answer_with(value)
        elif what == 'report':
            self.report(int(value))
        elif what in ('plug', 'unplug'):
            getattr(self, what)()
        print('PLAYED', what, flush=True)


def main():
    modem = Modem(sys.argv[1])
    try:
        while True:
            sources = [sys.stdin] + ([modem.master] if modem.master is not None else [])
            for source in select.select(sources, [], [])[0]:
                if source is sys.stdin:
                    line = sys.stdin.readline()
                    if not line:
                        return
                    modem.play(line)
                elif source == modem.master:
                    modem.take(os.read(source, 4096))
    finally:
        modem.unplug()


if __name__ == '__main__':
    main()
