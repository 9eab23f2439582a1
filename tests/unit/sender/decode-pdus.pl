#!/usr/bin/env perl
# decode-pdus.pl PDU...: reads SMS-SUBMIT units with Device::Gsm, written by others, and prints a
# line of UTF-8 for each: number|header|text, line breaks as blanks.
use strict;
use warnings;
use Device::Gsm::Pdu;
use Device::Gsm::Charset;

binmode STDOUT, ':encoding(UTF-8)';
for my $pdu (@ARGV) {
    my $rest = substr $pdu, 2 + 2 * hex substr $pdu, 0, 2;
    my $first = hex substr $rest, 0, 2;
    my $digits = hex substr $rest, 4, 2;
    my $addressEnd = 8 + 2 * int(($digits + 1) / 2);
    my $number = Device::Gsm::Pdu::decode_address(substr $rest, 4, $addressEnd - 4);
    $rest = substr $rest, $addressEnd + 2;
    my $coding = hex substr $rest, 0, 2;
    $rest = substr $rest, ($first & 0x18) == 0x10 ? 4 : 2;
    my $length = hex substr $rest, 0, 2;
    my $data = substr $rest, 2;
    my $header = '';
    if ($first & 0x40) {
        $header = substr $data, 0, 2 + 2 * hex substr $data, 0, 2;
        $data = substr $data, length $header;
    }
    my $text;
    if ($coding & 8) {
        $text = Device::Gsm::Pdu::decode_text_UCS2(sprintf('%02X', length($data) / 2) . $data);
        utf8::decode($text);
    } else {
        my $padding = -(length($header) * 4) % 7;
        my $septets = $length - (length($header) * 4 + $padding) / 7;
        # One more, since the bits that fill up count as well.
        my $counted = sprintf '%02X', $septets + ($padding ? 1 : 0);
        $text = Device::Gsm::Charset::gsm0338_to_iso8859(
            Device::Gsm::Pdu::decode_text7_udh($counted . $data, $padding));
    }
    $text =~ s/[\r\n]/ /g;
    print "$number|$header|$text\n";
}
