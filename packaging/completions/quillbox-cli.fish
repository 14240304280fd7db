# Completion of quillbox-cli for fish.
set -l commands info export import check restore list loans doubles summary sort undelete
set -l none "not __fish_seen_subcommand_from $commands"
set -l some "__fish_seen_subcommand_from $commands"

complete -c quillbox-cli -n $none -f
complete -c quillbox-cli -n $none -l version -d 'Print the version'
complete -c quillbox-cli -s h -l help -d 'Print how to use it'
complete -c quillbox-cli -n $none -a info -d 'Tell what a file is'
complete -c quillbox-cli -n $none -a export -d 'Write every field of every item'
complete -c quillbox-cli -n $none -a import -d 'Bring csv or json back in'
complete -c quillbox-cli -n $none -a check -d 'Look for everything that can be wrong'
complete -c quillbox-cli -n $none -a restore -d 'Put a collection back from its backup'
complete -c quillbox-cli -n $none -a list -d 'Print items as a table'
complete -c quillbox-cli -n $none -a loans -d 'Tell who has what'
complete -c quillbox-cli -n $none -a doubles -d 'Tell what is there more than once'
complete -c quillbox-cli -n $none -a summary -d 'Tell what items come to'
complete -c quillbox-cli -n $none -a sort -d 'Sort as the program does'
complete -c quillbox-cli -n $none -a undelete -d 'Give a deleted item its first text back'
complete -c quillbox-cli -n $some -F

complete -c quillbox-cli -n '__fish_seen_subcommand_from info check import list loans doubles summary' -l json -d 'Write JSON'
complete -c quillbox-cli -n '__fish_seen_subcommand_from export' -s f -l format -x -a 'csv json sqlite html'
complete -c quillbox-cli -n '__fish_seen_subcommand_from export' -s o -l output -r -d 'The file to write'
complete -c quillbox-cli -n '__fish_seen_subcommand_from export' -l for-spreadsheet -d 'Guard texts that look like formulas'
complete -c quillbox-cli -n '__fish_seen_subcommand_from import' -s f -l format -x -a 'csv json'
complete -c quillbox-cli -n '__fish_seen_subcommand_from import' -s n -l dry-run -d 'Write nothing'
complete -c quillbox-cli -n '__fish_seen_subcommand_from import' -l new -d 'Make the collection'
complete -c quillbox-cli -n '__fish_seen_subcommand_from import undelete' -l cut -d 'Cut texts that are too long'
complete -c quillbox-cli -n '__fish_seen_subcommand_from import undelete' -l replace -d 'Store ? for unknown characters'
complete -c quillbox-cli -n '__fish_seen_subcommand_from restore' -l from -x -a 'sort upgrade'
complete -c quillbox-cli -n '__fish_seen_subcommand_from list' -s w -l where -x -d 'FIELD=TEXT'
complete -c quillbox-cli -n '__fish_seen_subcommand_from list' -s s -l sort -x -d 'A field to order by'
complete -c quillbox-cli -n '__fish_seen_subcommand_from list' -s c -l columns -x -d 'Fields to print'
complete -c quillbox-cli -n '__fish_seen_subcommand_from list' -l deleted -d 'Deleted items, too'
complete -c quillbox-cli -n '__fish_seen_subcommand_from list' -l tsv -d 'Tabs between the columns'
complete -c quillbox-cli -n '__fish_seen_subcommand_from sort' -s b -l by -x -a 'Artist Album RecordCo MediaType Genre Label Publisher Commercial DiskLabel BookTitle ComicTitle Artists Author FileName'
complete -c quillbox-cli -n '__fish_seen_subcommand_from undelete' -l text -x -d 'Its first text'
