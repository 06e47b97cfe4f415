#!/usr/bin/perl
# The session page with Perl's CGI module: cookie, session check against the daemon, labels from the
# catalogue.

use strict;
use warnings;
use CGI;
use IO::Socket::UNIX;

use constant CHECK_SESSION => 0x02010005;
use constant ALL_ROLES => 0xf0000000;
use constant ALL_PARTITIONS => 0xffff;

# Reads exactly this many bytes.
sub receive {
    my ($daemon, $size) = @_;
    read($daemon, my $bytes, $size) == $size or exit 1;
    return $bytes;
}

# The payload of the daemon's next message, which must be an answer to the check.
sub receive_payload {
    my ($daemon) = @_;
    my ($type, $length) = unpack 'NN', receive($daemon, 8);
    exit 1 if $type != CHECK_SESSION;
    return receive($daemon, $length);
}

# The language of the session's user.
sub check_session {
    my ($session) = @_;
    my $daemon = IO::Socket::UNIX->new($ENV{ORV_IPC_SOCKET}) or exit 1;
    my $telegram = pack 'Na32x3CNN', $$, $session, 0, ALL_ROLES, ALL_PARTITIONS;
    print {$daemon} pack('NN', CHECK_SESSION, length $telegram), $telegram,
        pack('NNC', CHECK_SESSION, 1, 0);
    $daemon->flush;
    my (undef, undef, $language) = unpack 'Na32x3C', receive_payload($daemon);
    receive_payload($daemon);
    return $language;
}

# The texts of a catalogue file.
sub read_catalogue {
    my ($path) = @_;
    open my $file, '<:raw', $path or exit 1;
    local $/;
    my $bytes = <$file>;
    my $count = unpack 'N', $bytes;
    return map { unpack 'Z*', substr $bytes, 4 + 4 * $count + $_ } unpack "x4N$count", $bytes;
}

my %ENTITY = ('&' => '&amp;', '<' => '&lt;', '>' => '&gt;', '"' => '&quot;', ' ' => '&nbsp;');

sub quoted {
    my ($text) = @_;
    $text =~ s/"/&quot;/g;
    return $text;
}

my $cgi = CGI->new;
my $language = check_session($cgi->cookie('sid'));
my $charset = $language == 0 ? 'EUC-JP' : 'iso-8859-1';
my @label = map { s/([&<>" ])/$ENTITY{$1}/gr } read_catalogue($ENV{BENCH_CATALOGUE});
my %value = (host => 'host-1', location => 'Room "4"', contact => 'Duty desk',
    mail => 'admin@example.org', port => '8080', ntp => 'ntp.example.org');
print $cgi->header(-type => 'text/html', -charset => $charset, -cache_control => 'no-store');
print <<"PAGE";
<!DOCTYPE html>
<html>
<head>
<meta http-equiv="Content-Type" content="text/html; charset=$charset">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="FRAME-ID" content="M-BENCH-0-00">
<title>Settings</title>
<link rel="stylesheet" href="/default.css">
<script src="/console.js"></script>
</head>
<body>
<main class="settings">
<h1><img src="/images/fan_64x64.gif" width="64" height="64" border="0" name="" id="" alt="Fan"> $label[15]</h1>
<p class="purpose">$label[16]</p>
<form name="form_name" method="post" accept-charset="$charset">
<table class="settings">
<tr><th scope="row">$label[0]</th><td><input type="text" size="20" maxlength="63" name="host" value="@{[quoted($value{host})]}"></td></tr>
<tr><th scope="row">$label[1]</th><td><input type="text" size="30" maxlength="63" name="location" value="@{[quoted($value{location})]}"></td></tr>
<tr><th scope="row">$label[2]</th><td><input type="text" size="30" maxlength="63" name="contact" value="@{[quoted($value{contact})]}"></td></tr>
<tr><th scope="row">$label[3]</th><td><input type="password" size="14" maxlength="32" name="password" value=""></td></tr>
<tr><th scope="row">$label[4]</th><td><input type="password" size="14" maxlength="32" name="again" value=""></td></tr>
<tr><th scope="row">$label[5]</th><td><input type="text" size="30" maxlength="63" name="mail" value="@{[quoted($value{mail})]}"></td></tr>
<tr><th scope="row">$label[6]</th><td><input type="text" size="6" maxlength="5" name="port" value="@{[quoted($value{port})]}"></td></tr>
<tr><th scope="row">$label[7]</th><td><input type="text" size="30" maxlength="63" name="ntp" value="@{[quoted($value{ntp})]}"></td></tr>
<tr><th scope="row">$label[8]</th><td><input type="text" size="4" maxlength="3" style="width:30px;" value="192" name="gateway0" >&nbsp;.
<input type="text" size="4" maxlength="3" style="width:30px;" value="0" name="gateway1" >&nbsp;.
<input type="text" size="4" maxlength="3" style="width:30px;" value="2" name="gateway2" >&nbsp;.
<input type="text" size="4" maxlength="3" style="width:30px;" value="10" name="gateway3" ></td></tr>
<tr><th scope="row">$label[9]</th><td><input type="text" size="4" maxlength="3" value="192" name="network0">&nbsp;.
<input type="text" size="4" maxlength="3" value="0" name="network1">&nbsp;.
<input type="text" size="4" maxlength="3" value="2" name="network2">&nbsp;.
<input type="text" size="4" maxlength="3" value="10" name="network3">&nbsp;/
<input type="text" size="3" maxlength="2" value="24" name="network4"></td></tr>
<tr><th scope="row">$label[10]</th><td><input type="text" size="5" maxlength="4" value="2028" name="date0" >-<input type="text" size="3" maxlength="2" value="2" name="date1" >-<input type="text" size="3" maxlength="2" value="29" name="date2" >
</td></tr>
<tr><th scope="row">$label[11]</th><td><input type="text" size="3" maxlength="2" value="23" name="time0" >:
<input type="text" size="3" maxlength="2" value="59" name="time1" >:
<input type="text" size="3" maxlength="2" value="00" name="time2" ></td></tr>
<tr><th scope="row">$label[12]</th><td><select name="boot">
<option value="cd">CD-ROM
<option value="disk" selected>Disk
<option value="net">Network
</select></td></tr>
<tr><th scope="row">$label[13]</th><td><label for="led_off"><input type="radio" name="led" value="off" id="led_off" checked>Off</label>
<label for="led_on"><input type="radio" name="led" value="on" id="led_on">On</label></td></tr>
<tr><th scope="row">$label[14]</th><td><input type="checkbox" name="mail_on" value="1" id="mail_on" checked>Mail
<input type="checkbox" name="trap_on" value="1" id="trap_on">Trap</td></tr>
</table>
<p class="note">$label[17]</p>
<p><input type="hidden" name="page_state" value="3"><input type="submit" name="submit" value="Set"> <input type="reset" name="reset" value="Reset"></p>
</form>
</main>
</body>
</html>
PAGE
