<?php
// The session page in PHP: cookie, session check against the daemon, labels from the catalogue.

const CHECK_SESSION = 0x02010005;
const ALL_ROLES = 0xf0000000;
const ALL_PARTITIONS = 0xffff;

/** Reads exactly this many bytes. */
function receive($daemon, int $size): string {
    $bytes = stream_get_contents($daemon, $size);
    if ($bytes === false || strlen($bytes) !== $size) {
        exit(1);
    }
    return $bytes;
}

/** The payload of the daemon's next message, which must be an answer to the check. */
function receivePayload($daemon): string {
    $head = unpack('Ntype/Nlength', receive($daemon, 8));
    if ($head['type'] !== CHECK_SESSION) {
        exit(1);
    }
    return receive($daemon, $head['length']);
}

/** The language of the session's user. */
function checkSession(string $session): int {
    $daemon = stream_socket_client('unix://' . getenv('ORV_IPC_SOCKET'));
    $telegram = pack('Na32x3CNN', getmypid(), $session, 0, ALL_ROLES, ALL_PARTITIONS);
    fwrite($daemon, pack('NN', CHECK_SESSION, strlen($telegram)) . $telegram
        . pack('NNC', CHECK_SESSION, 1, 0));
    $answer = unpack('Npid/a32session/x3/Clanguage', receivePayload($daemon));
    receivePayload($daemon);
    return $answer['language'];
}

/** The texts of a catalogue file. */
function readCatalogue(string $path): array {
    $bytes = file_get_contents($path);
    $count = unpack('N', $bytes)[1];
    $texts = [];
    foreach (unpack("N$count", $bytes, 4) as $offset) {
        $start = 4 + 4 * $count + $offset;
        $texts[] = substr($bytes, $start, strpos($bytes, "\0", $start) - $start);
    }
    return $texts;
}

function label(int $number): string {
    global $catalogue;
    return strtr($catalogue[$number],
        ['&' => '&amp;', '<' => '&lt;', '>' => '&gt;', '"' => '&quot;', ' ' => '&nbsp;']);
}

function quoted(string $text): string {
    return str_replace('"', '&quot;', $text);
}

$language = checkSession($_COOKIE['sid']);
$charset = $language === 0 ? 'EUC-JP' : 'iso-8859-1';
$catalogue = readCatalogue(getenv('BENCH_CATALOGUE'));
$value = ['host' => 'host-1', 'location' => 'Room "4"', 'contact' => 'Duty desk',
    'mail' => 'admin@example.org', 'port' => '8080', 'ntp' => 'ntp.example.org'];
header("Content-Type: text/html; charset=$charset");
header('Cache-Control: no-store');
?>
<!DOCTYPE html>
<html>
<head>
<meta http-equiv="Content-Type" content="text/html; charset=<?= $charset ?>">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="FRAME-ID" content="M-BENCH-0-00">
<title>Settings</title>
<link rel="stylesheet" href="/default.css">
<script src="/console.js"></script>
</head>
<body>
<main class="settings">
<h1><img src="/images/fan_64x64.gif" width="64" height="64" border="0" name="" id="" alt="Fan"> <?= label(15) ?></h1>
<p class="purpose"><?= label(16) ?></p>
<form name="form_name" method="post" accept-charset="<?= $charset ?>">
<table class="settings">
<tr><th scope="row"><?= label(0) ?></th><td><input type="text" size="20" maxlength="63" name="host" value="<?= quoted($value['host']) ?>"></td></tr>
<tr><th scope="row"><?= label(1) ?></th><td><input type="text" size="30" maxlength="63" name="location" value="<?= quoted($value['location']) ?>"></td></tr>
<tr><th scope="row"><?= label(2) ?></th><td><input type="text" size="30" maxlength="63" name="contact" value="<?= quoted($value['contact']) ?>"></td></tr>
<tr><th scope="row"><?= label(3) ?></th><td><input type="password" size="14" maxlength="32" name="password" value=""></td></tr>
<tr><th scope="row"><?= label(4) ?></th><td><input type="password" size="14" maxlength="32" name="again" value=""></td></tr>
<tr><th scope="row"><?= label(5) ?></th><td><input type="text" size="30" maxlength="63" name="mail" value="<?= quoted($value['mail']) ?>"></td></tr>
<tr><th scope="row"><?= label(6) ?></th><td><input type="text" size="6" maxlength="5" name="port" value="<?= quoted($value['port']) ?>"></td></tr>
<tr><th scope="row"><?= label(7) ?></th><td><input type="text" size="30" maxlength="63" name="ntp" value="<?= quoted($value['ntp']) ?>"></td></tr>
<tr><th scope="row"><?= label(8) ?></th><td><input type="text" size="4" maxlength="3" style="width:30px;" value="192" name="gateway0" >&nbsp;.
<input type="text" size="4" maxlength="3" style="width:30px;" value="0" name="gateway1" >&nbsp;.
<input type="text" size="4" maxlength="3" style="width:30px;" value="2" name="gateway2" >&nbsp;.
<input type="text" size="4" maxlength="3" style="width:30px;" value="10" name="gateway3" ></td></tr>
<tr><th scope="row"><?= label(9) ?></th><td><input type="text" size="4" maxlength="3" value="192" name="network0">&nbsp;.
<input type="text" size="4" maxlength="3" value="0" name="network1">&nbsp;.
<input type="text" size="4" maxlength="3" value="2" name="network2">&nbsp;.
<input type="text" size="4" maxlength="3" value="10" name="network3">&nbsp;/
<input type="text" size="3" maxlength="2" value="24" name="network4"></td></tr>
<tr><th scope="row"><?= label(10) ?></th><td><input type="text" size="5" maxlength="4" value="2028" name="date0" >-<input type="text" size="3" maxlength="2" value="2" name="date1" >-<input type="text" size="3" maxlength="2" value="29" name="date2" >
</td></tr>
<tr><th scope="row"><?= label(11) ?></th><td><input type="text" size="3" maxlength="2" value="23" name="time0" >:
<input type="text" size="3" maxlength="2" value="59" name="time1" >:
<input type="text" size="3" maxlength="2" value="00" name="time2" ></td></tr>
<tr><th scope="row"><?= label(12) ?></th><td><select name="boot">
<option value="cd">CD-ROM
<option value="disk" selected>Disk
<option value="net">Network
</select></td></tr>
<tr><th scope="row"><?= label(13) ?></th><td><label for="led_off"><input type="radio" name="led" value="off" id="led_off" checked>Off</label>
<label for="led_on"><input type="radio" name="led" value="on" id="led_on">On</label></td></tr>
<tr><th scope="row"><?= label(14) ?></th><td><input type="checkbox" name="mail_on" value="1" id="mail_on" checked>Mail
<input type="checkbox" name="trap_on" value="1" id="trap_on">Trap</td></tr>
</table>
<p class="note"><?= label(17) ?></p>
<p><input type="hidden" name="page_state" value="3"><input type="submit" name="submit" value="Set"> <input type="reset" name="reset" value="Reset"></p>
</form>
</main>
</body>
</html>
