<?php
header('Content-Type: text/plain');
$file = $_FILES['file'];
if ($file['error'] !== UPLOAD_ERR_OK) {
    exit(1);
}
if (getenv('BENCH_KEEP') !== false) {
    move_uploaded_file($file['tmp_name'], getenv('BENCH_KEEP'));
}
echo $file['name'], ' ', $file['size'], "\n";
