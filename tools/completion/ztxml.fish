# Completion of ztxml's command line for fish, which looks for it in its vendor_completions.d.

function __ztxml_schemas
    ztxml schemas 2>/dev/null | awk 'NR > 1 { print $2 "\t" $3 }'
end

# __ztxml_of COMMAND...: whether one of these was given.
function __ztxml_of
    __fish_seen_subcommand_from $argv
end

complete -c ztxml -l help -s h -d 'Print what it does'
complete -c ztxml -l log -x -a '1 2 3 4' -d 'Print log lines from this level up'
complete -c ztxml -l color -x -a 'auto always never' -d Colours
complete -c ztxml -l context -x -d 'Lines before one that is refused'

complete -c ztxml -n __fish_use_subcommand -l version -d 'Print the version'
complete -c ztxml -n __fish_use_subcommand -x -a show -d 'Print the objects that documents are read as'
complete -c ztxml -n __fish_use_subcommand -x -a check -d 'Tell which of many documents are refused or faulty'
complete -c ztxml -n __fish_use_subcommand -x -a diff -d 'Compare two documents'
complete -c ztxml -n __fish_use_subcommand -x -a get -d 'Print one value of a document'
complete -c ztxml -n __fish_use_subcommand -x -a edit -d 'Change values of a document in place'
complete -c ztxml -n __fish_use_subcommand -x -a merge -d 'Print the state that results from notifications'
complete -c ztxml -n __fish_use_subcommand -x -a roundtrip -d 'Read documents and write them again'
complete -c ztxml -n __fish_use_subcommand -x -a events -d 'Print the callbacks of the parser'
complete -c ztxml -n __fish_use_subcommand -x -a namespaces -d 'Print the namespace declarations'
complete -c ztxml -n __fish_use_subcommand -x -a schemas -d 'List the schemas that the library knows'
complete -c ztxml -n __fish_use_subcommand -x -a body -d 'Print the documents of a message as they are'
complete -c ztxml -n __fish_use_subcommand -x -a format -d 'Print documents indented'
complete -c ztxml -n __fish_use_subcommand -x -a new -d 'Print an example of a document to start from'
complete -c ztxml -n __fish_use_subcommand -x -a report -d 'Write a page about captures and documents'
complete -c ztxml -n __fish_use_subcommand -x -a help -d 'Print what a command does'

complete -c ztxml -n '__ztxml_of show check diff get edit merge roundtrip format report' -l schema -x -a '(__ztxml_schemas)' -d 'The schema of every document'
complete -c ztxml -n '__ztxml_of show check diff roundtrip report' -l standard -d 'In the standard profile'
complete -c ztxml -n '__ztxml_of show check diff merge events schemas' -l json -d 'Print JSON'
complete -c ztxml -n '__ztxml_of show check roundtrip merge events namespaces format report' -l recursive -s r -d 'Take the files in directories'
complete -c ztxml -n '__ztxml_of show check roundtrip merge events namespaces format report' -l require-document -d 'Refuse messages without a document'
complete -c ztxml -n '__ztxml_of show check roundtrip events namespaces format' -l jobs -s j -x -d 'Threads at work'
complete -c ztxml -n '__ztxml_of check' -l lost -d 'Also tell what the types do not keep'
complete -c ztxml -n '__ztxml_of check' -l strict -d 'Also tell what is missing, and wrong values'
complete -c ztxml -n '__ztxml_of check' -l quiet -s q -d 'Only what is not ok'
complete -c ztxml -n '__ztxml_of check' -l junit -r -d 'Write a report'
complete -c ztxml -n '__ztxml_of report' -l html -r -d 'The page to be written'
complete -c ztxml -n '__ztxml_of diff' -l side-by-side -s y -d 'In two columns'
complete -c ztxml -n '__ztxml_of diff' -l width -x -d 'The width of both columns'
complete -c ztxml -n '__ztxml_of edit' -l in-place -s i -d 'In the place of the file'
complete -c ztxml -n '__ztxml_of edit' -l set -x -d 'Set a value'
complete -c ztxml -n '__ztxml_of edit' -l remove -x -d 'Remove a value'
complete -c ztxml -n '__ztxml_of merge' -l events -d 'Print what became of each'
complete -c ztxml -n '__ztxml_of body' -l nth -x -d 'Only the Nth document'
complete -c ztxml -n '__ztxml_of new' -x -a '(__ztxml_schemas)'
complete -c ztxml -n '__ztxml_of help' -x -a 'show check diff get edit merge roundtrip events namespaces schemas body format new'
