#!/usr/bin/perl
# count words
use strict;
my %count;
while (my $line = <STDIN>) {
    chomp $line;
    $count{$_}++ for split /\s+/, $line;
}
print "$_: $count{$_}\n" foreach sort keys %count;
