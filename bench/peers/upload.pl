#!/usr/bin/perl
use strict;
use warnings;
use CGI;

my $cgi = CGI->new;
my $name = $cgi->param('file');
my $file = $cgi->upload('file') or exit 1;
my $path = $cgi->tmpFileName($file);
print $cgi->header(-type => 'text/plain');
print "$name ", -s $path, "\n";
rename "$path", $ENV{BENCH_KEEP} or exit 1 if defined $ENV{BENCH_KEEP};
